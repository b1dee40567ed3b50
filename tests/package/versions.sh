#!/bin/sh
# versions.sh LIBDIR VERSION SOURCE: the name that hosts load has major and minor version, which say what is compatible.
# Each library has its Debian package, which is built with all that the program needs to be built.
set -eu
libdir=$1 version=$2 source=$3
fail() { echo "$1"; exit 1; }
for library in service xml keyword-syntax keywords decks; do
    name=libveld-quor-$library.so
    test -f "$libdir/$name.$version"
    test ! -L "$libdir/$name.$version"
    test "$(readlink -f "$libdir/$name")" = "$(readlink -f "$libdir/$name.$version")"
    test -L "$libdir/$name.${version%.*}"
    soname=$(objdump -p "$libdir/$name" | awk '$1 == "SONAME" { print $2 }')
    test "$soname" = "$name.${version%.*}" || fail "$name has the name $soname"
    package=libveld-quor-$library${version%.*}
    grep -qx "Package: $package" "$source/debian/control" || fail "$package is no package"
    grep -qxF "usr/lib/*/$name.*" "$source/debian/$package.install" || fail "$package is without $name"
done
awk '$1 == "run" && $2 != "g++" { print $2 }' "$source/cmake/packages.txt" | while read -r package; do
    grep -qx " $package," "$source/debian/control" || fail "$package is no build dependency of the packages"
done
