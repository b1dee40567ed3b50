#!/usr/bin/env bash
# Shows what of quor/ the fuzz targets reach from their seeds and what `make fuzz` has kept:
#   coverage.sh BUILD CORPUS
# BUILD is one of the preset `fuzz` that counts. Prints the lines of code by folder, and writes the functions that no
# input reaches to BUILD/not-reached.txt.
set -euo pipefail
build=$(realpath "${1:?usage: coverage.sh BUILD CORPUS}")
corpus=$(realpath -m "${2:?usage: coverage.sh BUILD CORPUS}")
cd "$(dirname "$0")/../.."
names=(document deck edits files)

profiles=$build/fuzz-profiles
rm -rf "$profiles"
for name in "${names[@]}"; do
    folders=("tests/fuzz/seeds/$name")
    [ ! -d "$corpus/fuzz-$name" ] || folders+=("$corpus/fuzz-$name")
    [ "$name" != deck ] || folders+=(examples/decks)
    LLVM_PROFILE_FILE="$profiles/%4m.profraw" "$build/bin/fuzz-$name" -runs=0 "${folders[@]}" >"$build/fuzz-$name.log" 2>&1 </dev/null ||
        { tail -n 5 "$build/fuzz-$name.log" >&2; exit 1; }
done
llvm-profdata merge -o "$profiles/all.profdata" "$profiles"/*.profraw

objects=("$build/bin/fuzz-document")
for object in "$build"/lib/*.so "${names[@]/#/$build/bin/fuzz-}"; do
    objects+=(-object "$object")
done
llvm-cov export -format=lcov -instr-profile="$profiles/all.profdata" "${objects[@]}" -- quor 2>/dev/null |
    python3 tests/fuzz/coverage.py "$PWD" "$build/not-reached.txt"
