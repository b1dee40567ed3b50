"""Reading a large array with the module, beside numpy on the same digits: seconds, and memory that the process gained,
each in a process of its own.  reading.py [VALUES]"""

import subprocess
import sys
import tempfile
import time
from pathlib import Path


def memory(field: str) -> float:
    """In MB: `VmRSS`, what the process has, or `VmHWM`, the most that it had since `forget`."""
    for line in Path("/proc/self/status").read_text().splitlines():
        if line.startswith(field):
            return int(line.split()[1]) / 1024
    return 0.0


def forget() -> float:
    Path("/proc/self/clear_refs").write_text("5")
    return memory("VmRSS")


def deck_text(count: int) -> str:
    digits = "\n".join(f"0.{10000 + i * 7919 % 30000}" for i in range(count))
    return f"RUNSPEC\nDIMENS\n {count} 1 1 /\nGRID\nPORO\n{digits}\n/\n"


def one(way: str, path: str) -> None:
    """Prints seconds and MB of one way to get the array."""
    import numpy as np
    import quor

    quor.language()
    np.fromstring("1 2", sep=" ")
    before = forget()
    if way == "array" or way == "copy":
        deck = quor.read(path)
        before = forget()
        start = time.perf_counter()
        values = deck["PORO"].array if way == "array" else deck["PORO"].array.copy()
    else:
        start = time.perf_counter()
        if way == "quor.read":
            values = quor.read(path)["PORO"].array
        elif way == "numpy.fromstring":
            text = Path(path).read_text()
            values = np.fromstring(text[text.index("PORO") + 4 : text.rindex("/")], sep=" ")
        else:
            values = np.loadtxt(path, skiprows=5, comments="/")
    seconds = time.perf_counter() - start
    peak, kept = memory("VmHWM") - before, memory("VmRSS") - before
    print(f"{way:18}{seconds:10.4f} s {peak:10.1f} MB at most {kept:10.1f} MB kept   sum {values.sum():.4f}")


def main(count: int) -> None:
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "array.data"
        path.write_text(deck_text(count))
        size = path.stat().st_size / 2**20
        print(f"{count} values, {size:.1f} MB of text, {count * 8 / 2**20:.1f} MB as numbers")
        for way in ("quor.read", "numpy.fromstring", "numpy.loadtxt", "array", "copy"):
            subprocess.run([sys.executable, __file__, way, str(path)], check=True)


if __name__ == "__main__":
    if len(sys.argv) > 2:
        one(*sys.argv[1:])
    else:
        main(int(sys.argv[1]) if len(sys.argv) > 1 else 2_000_000)
