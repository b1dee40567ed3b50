#!/bin/sh
# all.sh BUILD: the long form: places by six callers, all commands, all that can go wrong with a call.
# FAULTS_DEPTH=10: places by ten callers, up to 15.
set -u
here=$(dirname "$0") build=$1 depth=${FAULTS_DEPTH:-6} failed=0
decks=$here/../../examples/decks
memory() {
    echo "== memory: quor $*"
    "$here/memory.sh" "$build/lib/FailingMemory.so" "$build/bin/quor" "$depth" "$@" || failed=1
}
echo "== memory: the library"
"$here/library.sh" "$build/lib/FailingMemory.so" "$build/bin/library-faults" "$depth" || failed=1
memory check "$decks/faulty/three-mist*.data"
memory check "$decks/faulty/three-mistakes.data" --format sarif
memory format "$decks/first-comparative.data" --normalize
memory info "$decks/first-comparative.data"
memory get "$decks/first-comparative.data" EQUIL
memory set "$decks/first-comparative.data" 'EQUIL[1].OWC' 2410 --diff
memory diff "$decks/first-comparative.data" "$decks/faulty/three-mistakes.data"
memory port "$decks/first-comparative.data" --to Dunmere
memory show WCONPROD
memory explain wrong-section
memory check "$decks/faulty/include-missing.data"
memory lint "$here/../lint"
echo "== calls of the system"
"$here/calls.sh" "$build/lib/FailingCalls.so" "$build/bin/quor" fail short crash signal change || failed=1
exit $failed
