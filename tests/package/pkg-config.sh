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
for standard in c++17 c++20; do
    build $standard veld-quor-decks "$examples/read_deck.cpp" "$@"
    "$output" "$examples/decks/steam-injection.data"
done
