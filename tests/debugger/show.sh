#!/bin/sh
# Stops a program in gdb and compares what the printers show:  show.sh GDB PRINTERS PROGRAM
set -eu

"$1" -q -nx -batch -ex "set auto-load off" -ex "set environment ASAN_OPTIONS=detect_leaks=0" -ex "source $2" -ex "set print elements 8" -ex "break Stop" -ex run \
    -ex "print data" -ex "print syntax" -ex "print md" -ex "print cells" "$3" 2>&1 |
    sed -n 's/^\$[0-9]* = //p; /[Ee]xception/p' >"$3.shown"
diff -u - "$3.shown" <<'EXPECTED'
WCONPROD list of 1 = {[0] = record = {WELL = "P1", STATUS = no value, CONTROL = no value, ORAT = 900.0, WRAT = no value, GRAT = no value, LRAT = no value, RESV = no value...}}
keyword WCONPROD: list of record
list of record = {[0] = record}
PORO list of 2 = {[0] = 0.25, [1] = 0.5}
EXPECTED
