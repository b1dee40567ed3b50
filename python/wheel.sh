#!/usr/bin/env bash
# wheel.sh BUILD: makes the wheel of the module in BUILD/python/dist, without the network. It holds the program
# and all libraries that are needed but those of the C and C++ run-time.
set -euo pipefail
build=$(cd "$1" && pwd)
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
here=$(cd "$(dirname "$0")" && pwd)
stage=$build/python/wheel
package=$stage/quor
rm -rf "$stage" "$build/python/dist"
mkdir -p "$package/bin" "$package/lib"
cp "$here"/quor/*.py "$here"/quor/*.pyi "$here/quor/py.typed" "$package"
cp "$build"/python/quor/_core.*.so "$package"
cp "$build/bin/quor" "$package/bin"

# What each binary needs is found as the loader finds it, once more for all that was found. The parser of XML is opened
# by its name.
xml=$build/lib/libveld-quor-xml.so.${version%.*}
cp -L "$xml" "$package/lib"
ldd "$package"/_core.*.so "$package/bin/quor" "$xml" | awk '$2 == "=>" && $3 ~ "^/" { print $3 }' | sort -u |
    grep -vE '/(ld-linux[^/]*|lib(c|m|dl|rt|pthread|resolv|gcc_s|stdc\+\+))\.so' | while read -r library; do
        cp -L "$library" "$package/lib"
    done
patchelf --set-rpath '$ORIGIN/lib' "$package"/_core.*.so
patchelf --set-rpath '$ORIGIN/../lib' "$package/bin/quor"
for library in "$package"/lib/*; do
    patchelf --set-rpath '$ORIGIN' "$library"
done
strip --strip-unneeded "$package"/_core.*.so "$package/bin/quor" "$package"/lib/*

sed "s/@VERSION@/$version/" "$here/pyproject.toml.in" >"$stage/pyproject.toml"
cp "$here/setup.py" "$stage"
cd "$stage"
/usr/bin/python3 -m build --wheel --no-isolation --outdir "$build/python/dist" . >"$build/python/wheel.log" 2>&1 ||
    { cat "$build/python/wheel.log"; exit 1; }
ls "$build"/python/dist/*.whl
