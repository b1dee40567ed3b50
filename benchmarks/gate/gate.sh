#!/bin/sh
# gate.sh PROGRAM COUNTS [--write]: counts the instructions of the hot paths that PROGRAM runs, and fails if one has
# over 3 % more than COUNTS says. With --write COUNTS gets what was counted.
set -eu
program=$1 counts=$2 write=${3:-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$folder/out" "$program" 2>"$folder/log" ||
    { cat "$folder/log"; exit 1; }
# Without what copies and compares memory in the C library: which of its ways it takes depends on the processor, the size of the
# caches and the addresses. A name stands behind its number once, where the function is called or where its costs are.
for part in "$folder"/out.*; do
    awk '
        /^desc: Trigger: Client Request: / { path = $NF }
        /^c?fn=/ {
            number = $1
            sub(/^c?fn=/, "", number)
            if (NF > 1) isLeftOut[number] = $2 ~ /^__(mem|str|wcs)/
            if (/^fn=/) isCounted = !isLeftOut[number]
            next
        }
        /^calls=/ { isOfCall = 1; next } # the next line has the costs of what is called
        /^[-+*0-9]/ { if (isOfCall) isOfCall = 0; else if (isCounted) sum += $2 }
        END { if (path) print path, sum }' "$part"
done | sort >"$folder/counts"
test -s "$folder/counts"
if [ "$write" = --write ]; then
    cp "$folder/counts" "$counts"
    exit
fi
awk '
    FNR == NR { before[$1] = $2; next }
    { now[$1] = $2 }
    END {
        for (path in now) {
            if (!(path in before)) { print path ": not in the counts; run make bench-counts"; bad = 1; continue }
            change = (now[path] / before[path] - 1) * 100
            if (change > 3) { printf "%s: %d instructions, %.1f %% more than the %d before\n", path, now[path], change, before[path]; bad = 1 }
            else if (change < -3) printf "%s: %.1f %% fewer instructions; run make bench-counts to keep that\n", path, -change
        }
        for (path in before) if (!(path in now)) { print path ": not counted"; bad = 1 }
        exit bad
    }' "$counts" "$folder/counts"
