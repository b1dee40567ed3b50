#!/bin/sh
# library.sh SHIM HOST DEPTH: runs the host with each place that asks for memory failing.
set -eu
report=$(mktemp)
trap 'rm -f "$report"' EXIT
status=0
FAULTS_REPORT=$report FAULTS_DEPTH=$3 LD_PRELOAD=$1 "$2" || status=$?
cat "$report"
[ $status = 0 ] && grep -q ' failures 0$' "$report"
