#!/bin/sh
# without-parser.sh PREFIX LIBDIR DECK: a deck is checked without a library of XML in the process, and without the one
# that opens it; a document isn't, and the reason is told.
set -eu
prefix=$1 libdir=$2 deck=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/bin" "$folder/$libdir"
cp "$prefix/bin/quor" "$folder/bin"
cp -P "$prefix/$libdir"/libveld-quor-*.so.* "$folder/$libdir"
rm "$folder/$libdir"/libveld-quor-xml.so.*
quor=$folder/bin/quor
ldd "$quor" >"$folder/needed"
! grep -e xerces -e 'not found' "$folder/needed" || exit 1
"$quor" check "$deck" >"$folder/said"
grep -q 'no findings' "$folder/said"
echo '<keywords/>' >"$folder/x.xml"
status=0
"$quor" lint "$folder/x.xml" >"$folder/said" 2>&1 || status=$?
name=$(basename "$prefix/$libdir"/libveld-quor-xml.so.*.*.*)
text="the XML parser can't be loaded: ${name%.*}: cannot open shared object file: No such file or directory"
test $status = 2 && grep -q "$text" "$folder/said" || { cat "$folder/said"; exit 1; }
