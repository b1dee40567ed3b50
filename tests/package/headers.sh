#!/bin/sh
# headers.sh INCLUDEDIR: only public headers are there, none needs an internal one, and the umbrella has them all.
set -eu
cd "$1"
test -f quor/Keywords.h
others=$(find quor ! -type d ! -name '*.h' -o -name internal)
test -z "$others" || { echo "installed: $others"; exit 1; }
if grep -rnE '#include.*(internal/|boost|zstd)' quor; then exit 1; fi
missing=$(find quor -name '*.h' ! -path quor/Keywords.h ! -name Export.h | while read -r header; do
    grep -qF "#include \"$header\"" quor/Keywords.h || echo "$header"
done)
test -z "$missing" || { echo "not in quor/Keywords.h: $missing"; exit 1; }
