#!/bin/sh
# versions.sh LIBDIR VERSION: the name that hosts load has major and minor version, which say what is compatible.
set -eu
libdir=$1 version=$2
for library in service xml keyword-syntax keywords decks; do
    name=libveld-quor-$library.so
    test -f "$libdir/$name.$version"
    test ! -L "$libdir/$name.$version"
    test "$(readlink -f "$libdir/$name")" = "$(readlink -f "$libdir/$name.$version")"
    test -L "$libdir/$name.${version%.*}"
    soname=$(objdump -p "$libdir/$name" | awk '$1 == "SONAME" { print $2 }')
    test "$soname" = "$name.${version%.*}" || { echo "$name has the name $soname"; exit 1; }
done
