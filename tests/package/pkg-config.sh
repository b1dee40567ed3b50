#!/bin/sh
# pkg-config.sh HOST.cpp EXAMPLES OUTPUT LIBDIR COMPILER [FLAGS]: hosts that are built without CMake.
set -eu
host=$1 examples=$2 output=$3 libdir=$4
shift 4
PKG_CONFIG_PATH=$libdir/pkgconfig
LD_LIBRARY_PATH=$libdir
export PKG_CONFIG_PATH LD_LIBRARY_PATH
# build STANDARD PACKAGE SOURCE COMPILER [FLAGS]
build() {
    standard=$1 package=$2 source=$3
    shift 3
    # shellcheck disable=SC2046
    "$@" -std="$standard" $(pkg-config --cflags "$package") "$source" -o "$output" $(pkg-config --libs "$package")
}
build c++17 veld-quor-keywords "$host" "$@"
"$output"
# build_example STANDARD NAME COMPILER [FLAGS]
build_example() {
    standard=$1 name=$2
    shift 2
    build "$standard" veld-quor-decks "$examples/$name.cpp" "$@"
    "$output" "$examples/decks/steam-injection.data" # of which read_deck alone makes use
}
build_example c++17 read_deck "$@"
build_example c++17 edit_deck "$@"
build_example c++20 read_deck "$@"
build_example c++20 read_in_threads "$@"
