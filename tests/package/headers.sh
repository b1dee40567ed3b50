#!/bin/sh
# headers.sh INCLUDEDIR: only public headers are there, none needs an internal one, and the umbrellas have them all.
set -eu
cd "$1"
others=$(find quor ! -type d ! -name '*.h' -o -name internal)
test -z "$others" || { echo "installed: $others"; exit 1; }
if grep -rnE '#include.*(internal/|boost|zstd|fmt)' quor; then exit 1; fi
# are_in UMBRELLA: the headers whose names are read are all included by it.
are_in() {
    missing=$(grep -vxF "$1" | while read -r header; do grep -qF "#include \"$header\"" "$1" || echo "$header"; done)
    test -z "$missing" || { echo "not in $1: $missing"; exit 1; }
}
find quor -name '*.h' ! -path 'quor/deck/*' ! -path 'quor/lint/*' ! -path quor/Deck.h ! -name Export.h |
    are_in quor/Keywords.h
find quor/deck -name '*.h' | are_in quor/Deck.h
find quor/lint -name '*.h' | are_in quor/lint/Lint.h
