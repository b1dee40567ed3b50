#!/bin/sh
# Opens a page that tests itself, prints what it says in its element `result`, and fails for a line with WRONG, for an
# error on the console, and if it didn't come to its end.  browse.sh PAGE LOG
set -eu
page=$1 log=$2
profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT
chromium --headless --no-sandbox --disable-gpu --user-data-dir="$profile" --allow-file-access-from-files \
    --enable-logging=stderr --virtual-time-budget=20000 --dump-dom "file://$page" >"$log.dom" 2>"$log"
result=$(sed -n '/<pre id="result">/,/<\/pre>/p' "$log.dom")
echo "$result"
grep -E 'CONSOLE.*(rror|Uncaught|refused)' "$log" && exit 1
echo "$result" | grep -q WRONG && exit 1
echo "$result" | grep -q '^end'
