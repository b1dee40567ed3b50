#!/usr/bin/env bash
# Checks some hundred decks as people do: with workers, after a kill, and with GNU parallel:  many-decks.sh QUOR
set -euo pipefail
quor=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir decks
for i in $(seq 500); do
    printf 'RUNSPEC\nDIMENS\n 2 2 %d /\nOIL\n%s\n' "$i" "$([ $((i % 3)) != 0 ] || echo OLI)" >"decks/$i.data"
done
fail() { echo "$1"; exit 1; }
check() { "$quor" check decks --no-settings "$@" || test $? = 1; }

# The report is the same whatever the number of processes, and after each other.
check --jobs 1 >one.txt 2>errors.txt
check --jobs 3 >three.txt 2>errors.txt
cmp one.txt three.txt
test "$(tail -n 1 one.txt)" = "500 decks: 166 errors, 0 warnings" || fail "$(tail -n 1 one.txt)"

# A process that dies with a deck in its hands is a line of the result. One that is killed between two decks is none, so it is
# tried until one is.
lines=0
for try in $(seq 50); do
    "$quor" check decks --no-settings --jobs 2 --format jsonl >killed.jsonl 2>errors.txt &
    main=$!
    until worker=$(pgrep -P "$main" | head -n 1) && [ -n "$worker" ] || ! kill -0 "$main" 2>/dev/null; do :; done
    [ -z "$worker" ] || kill -KILL "$worker" 2>/dev/null || true
    status=0
    wait "$main" || status=$?
    test "$(wc -l <killed.jsonl)" = 500 || fail "$(wc -l <killed.jsonl) of 500 results after a kill"
    lines=$(grep -c 'its process was ended by signal 9 (Killed)"}$' killed.jsonl || true)
    [ "$lines" = 0 ] || break
done
test "$lines" = 1 || fail "$lines lines on the process that was killed, in try $try"
test "$status" = 2 || fail "the exit status is $status after a kill"

# A run that is killed is continued.
check --format jsonl >whole.jsonl 2>errors.txt
for try in $(seq 50); do
    "$quor" check decks --no-settings --jobs 1 --format jsonl --resume state >part.jsonl 2>errors.txt &
    main=$!
    until [ "$(stat -c %s state 2>/dev/null || echo 0)" -gt 9999 ] || ! kill -0 "$main" 2>/dev/null; do :; done
    kill -KILL "$main" 2>/dev/null || true
    wait "$main" 2>/dev/null || true
    [ ! -e state ] || break # else it had ended
done
truncate -s -5 state # as if it was killed while it wrote
check --format jsonl --resume state >rest.jsonl 2>errors.txt
cmp whole.jsonl rest.jsonl
[ ! -e state ] || fail "the state is left"

# GNU parallel, as docs/ensembles.md has it.
find decks -name '*.data' -print0 | sort -z | parallel --will-cite -0 -j 2 -N 50 --keep-order \
    "$quor" check --jobs 1 --quiet --no-settings --fail-on never --format jsonl {} >parallel.jsonl
sort parallel.jsonl | cmp - <(sort whole.jsonl)
