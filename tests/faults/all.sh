#!/bin/sh
# all.sh BUILD: the long form: places by six callers, all commands, all that can go wrong with a call.
set -eu
here=$(dirname "$0") build=$1
decks=$here/../../examples/decks
memory() {
    echo "== memory: quor $*"
    "$here/memory.sh" "$build/lib/FailingMemory.so" "$build/bin/quor" 6 "$@"
}
echo "== memory: the library"
"$here/library.sh" "$build/lib/FailingMemory.so" "$build/bin/library-faults" 6
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
"$here/calls.sh" "$build/lib/FailingCalls.so" "$build/bin/quor" fail short crash signal change
