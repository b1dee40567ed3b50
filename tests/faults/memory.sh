#!/bin/sh
# memory.sh SHIM PROGRAM DEPTH ARGUMENTS...: runs the program with each place that asks for memory failing.
set -eu
shim=$1 program=$2 depth=$3
shift 3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
status=0
"$program" "$@" >"$folder/expected" 2>/dev/null || status=$?
FAULTS_REPORT=$folder/report FAULTS_OUTPUT=$folder/expected FAULTS_STATUS=$status FAULTS_DEPTH=$depth LD_PRELOAD=$shim \
    "$program" "$@" 1<>"$folder/output" 2>"$folder/errors" || test $? -eq "$status"
cat "$folder/report"
cmp "$folder/expected" "$folder/output"
grep -q ' failures 0$' "$folder/report"
