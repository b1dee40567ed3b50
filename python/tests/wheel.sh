#!/usr/bin/env bash
# wheel.sh BUILD DECK: the wheel works in a bare virtual environment, without the build and without the network.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
work=$build/python/venv
wheel=$("$here/../wheel.sh" "$build")
rm -rf "$work"
/usr/bin/python3 -m venv "$work"
"$work/bin/pip" install --quiet --no-index --no-deps "$wheel"
unset PYTHONPATH LD_LIBRARY_PATH
cd "$work"
python=$work/bin/python
$python -m quor check "$2" | tail -1
$python -c 'import sys, quor; deck = quor.read(sys.argv[1]); print(len(deck.wells), "wells", deck["DIMENS"]["NX"])' "$2"
# Nothing of the project or of its libraries comes from elsewhere.
$python - <<'EOF'
import quor._core
libraries = {line.split()[-1] for line in open("/proc/self/maps") if "/libveld-quor" in line or "/libxerces" in line}
assert libraries and all("site-packages/quor/lib/" in library for library in libraries), libraries
EOF
