#!/bin/sh
# memory.sh SHIM PROGRAM DEPTH ARGUMENTS...: runs the program with each place that asks for memory failing.
set -eu
shim=$1 program=$2 depth=$3
shift 3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
status=0
"$program" "$@" >"$folder/expected" 2>/dev/null || status=$?
case " $* " in
*" sarif "*) # a log of the failure, with the results or without
    /usr/bin/python3 - "$folder" <<'EOF'
import json, sys
log = json.load(open(sys.argv[1] + "/expected"))
run = log["runs"][0]
notification = {"level": "error", "message": {"text": "out of memory"}}
run["invocations"] = [{"executionSuccessful": False, "toolExecutionNotifications": [notification]}]
for name, results in ("failed1", run["results"]), ("failed2", []):
    run["results"] = results
    print(json.dumps(log, indent=2, ensure_ascii=False), file=open(sys.argv[1] + "/" + name, "w"))
EOF
    ;;
esac
FAULTS_REPORT=$folder/report FAULTS_OUTPUT=$folder/expected FAULTS_FAILED=$folder/failed FAULTS_STATUS=$status \
    FAULTS_DEPTH=$depth LD_PRELOAD=$shim \
    "$program" "$@" 1<>"$folder/output" 2>"$folder/errors" || test $? -eq "$status"
cat "$folder/report"
cmp "$folder/expected" "$folder/output"
grep -q ' failures 0$' "$folder/report"
