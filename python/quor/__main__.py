"""``python -m quor check FIELD.data``: the program, from beside the module or from the path."""

import os
import shutil
import sys
from pathlib import Path


def main() -> int:
    beside = Path(__file__).with_name("bin") / "quor"
    program = str(beside) if beside.exists() else shutil.which("quor")
    if program is None:
        print("quor: the program is neither beside the module nor on the path", file=sys.stderr)
        return 2
    os.execv(program, ["quor", *sys.argv[1:]])


if __name__ == "__main__":
    sys.exit(main())
