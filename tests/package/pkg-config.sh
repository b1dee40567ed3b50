#!/bin/sh
# pkg-config.sh HOST.cpp OUTPUT LIBDIR COMPILER [FLAGS]: a host that is built without CMake.
set -eu
source=$1 output=$2 libdir=$3
shift 3
PKG_CONFIG_PATH=$libdir/pkgconfig
export PKG_CONFIG_PATH
# shellcheck disable=SC2046
$* -std=c++17 $(pkg-config --cflags veld-quor-keywords) "$source" -o "$output" $(pkg-config --libs veld-quor-keywords)
LD_LIBRARY_PATH=$libdir "$output"
