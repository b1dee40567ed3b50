"""Plots the measured rates of a well:  well_history.py DECK WELL PICTURE"""

import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import quor


def main(path: str, well: str, picture: str) -> None:
    deck = quor.read(path)
    history = deck.frame("WCONHIST")
    rates = history[history["WELL"] == well].set_index("date")[["ORAT", "WRAT"]]
    unit = deck["WCONHIST"].records[0].quantity("ORAT").unit
    axes = rates.plot(drawstyle="steps-post", title=f"{well} in {deck.title}")
    axes.set_ylabel(f"{unit}")
    plt.savefig(picture, dpi=80)
    print(f"{well}: {len(rates)} rates from {rates.index[0]:%Y-%m-%d} to {rates.index[-1]:%Y-%m-%d}")


if __name__ == "__main__":
    main(*sys.argv[1:])
