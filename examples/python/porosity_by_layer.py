"""Plots the mean porosity of each layer of a deck with one PORO for the whole grid:  porosity_by_layer.py DECK PICTURE"""

import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import quor


def main(path: str, picture: str) -> None:
    deck = quor.read(path)
    size = deck.sizes["DIMENS"]
    layers = deck["PORO"].array.reshape(size["NZ"], size["NY"], size["NX"])  # a view: nothing is copied
    means = layers.mean(axis=(1, 2))
    plt.barh(range(1, len(means) + 1), means)
    plt.yticks(range(1, len(means) + 1))
    plt.gca().invert_yaxis()
    plt.xlabel("mean of PORO")
    plt.ylabel("layer")
    plt.savefig(picture, dpi=80)
    print("porosity by layer: " + ", ".join(f"{mean:.4f}" for mean in means))


if __name__ == "__main__":
    main(*sys.argv[1:])
