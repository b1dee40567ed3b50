#!/usr/bin/env bash
# Runs fuzz targets from their seeds and corpus:  run.sh BUILD SECONDS [NAME...]
# Prints for each how many inputs were tried and how many edges of the code they reach. An input for which a claim
# doesn't hold is kept in BUILD/found, and ends the run.
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:?usage: run.sh BUILD SECONDS [NAME...]}
seconds=${2:?usage: run.sh BUILD SECONDS [NAME...]}
shift 2
names=("$@")
[ $# -gt 0 ] || mapfile -t names < <(cd "$build/bin" && ls -d fuzz-* | sed 's/^fuzz-//')

tests/fuzz/dictionary.sh "$build/bin/quor" >"$build/deck.dict"
mkdir -p "$build/found"
for name in "${names[@]}"; do
    corpus=$build/corpus/fuzz-$name
    log=$build/fuzz-$name.log
    mkdir -p "$corpus"
    more=("tests/fuzz/seeds/$name")
    case $name in
    deck) more+=(-entropic=0 "-dict=$build/deck.dict" examples/decks) ;;
    edits) more+=("-dict=$build/deck.dict") ;;
    esac
    echo "fuzz-$name: for $seconds s, see $log"
    "$build/bin/fuzz-$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -print_final_stats=1 \
        -artifact_prefix="$build/found/$name-" "$corpus" "${more[@]}" >"$log" 2>&1 </dev/null || {
        tail -n 60 "$log"
        echo "fuzz-$name: failed; what it was given is in $build/found" >&2
        exit 1
    }
    edges=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
    echo "fuzz-$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs, ${edges#cov: } edges, no finding"
done
