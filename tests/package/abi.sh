#!/bin/sh
# abi.sh INCLUDEDIR LIBDIR BASELINE [--write]: what hosts were compiled with is still there: all classes of the public
# headers, their members and virtual operations with their places, the values of enumerations, and the functions of the
# libraries. What is new doesn't matter. The types come from a small library that uses each class of the headers, since
# the libraries have no debug information, the functions from the symbols of the libraries: neither has the type that a
# function returns that isn't virtual.
set -eu
include=$(cd "$1" && pwd) libdir=$(cd "$2" && pwd) baseline=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

compile() {
    (cd "$work" && g++ -std=c++17 -I"$include" "$@")
}
printf '#include "%s"\n' quor/Deck.h quor/Keywords.h quor/lint/Lint.h >"$work/types.cpp"
compile -fdump-lang-class=classes -c -o /dev/null types.cpp
sed -n 's/^Class \(Veld::.*\)/void Uses(const \1\&) {}/p' "$work/classes" | sort -u >>"$work/types.cpp"

# What is inlined depends on the build, what has a strong symbol doesn't.
for library in service xml keyword-syntax keywords decks; do
    nm --dynamic --defined-only "$libdir/libveld-quor-$library.so"
done | awk '
    $2 ~ /[TDBR]/ {
        sub(/@.*/, "", $3)
        type = $2 == "T" ? "@function" : "@object"
        printf ".globl %s\n.type %s, %s\n%s: .byte 0\n.size %s, 1\n", $3, $3, type, $3, $3
    }' >"$work/functions.s"
test -s "$work/functions.s"
echo '.section .note.GNU-stack,"",@progbits' >>"$work/functions.s"

compile -fno-access-control -g -fno-eliminate-unused-debug-types -femit-class-debug-always -fPIC -shared \
    -o interface.so types.cpp functions.s
abidw --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names --no-elf-needed "$work/interface.so" \
    >"$work/interface.xml"

if [ "${4-}" = --write ]; then
    xz -9 --stdout "$work/interface.xml" >"$baseline"
    exit
fi
xz --decompress --stdout "$baseline" >"$work/baseline.xml"
compare() {
    abidiff "$@" --no-added-syms --no-show-locs "$work/baseline.xml" "$work/interface.xml"
}
if ! compare >"$work/changes"; then
    # With --redundant it leaves out nothing of what it found, but it counts what is harmless too, and may end itself.
    compare --redundant >"$work/all-changes" 2>/dev/null || true
    cat "$work/all-changes" "$work/changes" | head -n 100
    echo "A host that was built before may fail with these libraries. If this is intended: raise the minor version in"
    echo "CMakeLists.txt, unless that was done since the last release, and run 'make abi-baseline'."
    exit 1
fi
