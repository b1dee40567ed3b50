#!/bin/sh
# gate.sh PROGRAM COUNTS [--write]: counts the instructions of the hot paths that PROGRAM runs, and fails if one has
# over 3 % more than COUNTS says. With --write COUNTS gets what was counted.
set -eu
program=$1 counts=$2 write=${3:-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
# The C library picks its ways of copying by the processor and the sizes of its caches; here they are the same anywhere.
export GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2,-AVX,-AVX512VL,-ERMS,-FSRM,-AVX_Fast_Unaligned_Load\
:glibc.cpu.x86_non_temporal_threshold=0x1000000:glibc.cpu.x86_rep_movsb_threshold=0x10000000\
:glibc.cpu.x86_rep_stosb_threshold=0x10000000
valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$folder/out" "$program" 2>"$folder/log" ||
    { cat "$folder/log"; exit 1; }
awk '/^desc: Trigger: Client Request: / { path = $NF } /^summary: / { print path, $2 }' "$folder"/out.* |
    sort >"$folder/counts"
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
