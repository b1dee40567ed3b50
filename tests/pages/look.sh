#!/bin/sh
# Writes the manual and reports, one of them of 50 MB, and looks at all of them in a browser.  look.sh QUOR FOLDER DECK
set -eu
quor=$(realpath "$1") folder=$2 deck=$3 here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$folder"
mkdir -p "$folder"
cp "$here/package.json" "$here/package-lock.json" "$here/look.mjs" "$here/pictures.mjs" "$folder"
(cd "$folder" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error >/dev/null)
seconds() { # runs a command, and prints how long that took
    start=$(date +%s%N)
    "$@" 2>&1
    echo "  in $((($(date +%s%N) - start) / 1000000)) ms"
}
seconds "$quor" manual "$folder/manual"
seconds "$quor" report "$deck" -o "$folder/field.html"
"$here/other.sh" "$deck" "$folder/other"
seconds "$quor" report "$deck" --compare "$folder/other/$(basename "$deck")" -o "$folder/compared.html"
# A million cells a layer, and values that don't get smaller when they are packed.
awk 'BEGIN {
    print "RUNSPEC\nDIMENS\n1000 1000 3 /\nGRID"
    split("PORO PERMX PERMY PERMZ", names)
    for (i = 1; i <= 4; ++i) {
        print names[i]
        for (j = 0; j < 3000000; ++j) printf "%.6f%s", rand(), j % 10 == 9 ? "\n" : " "
        print "/"
    }
}' >"$folder/large.data"
seconds "$quor" report "$folder/large.data" -o "$folder/large.html"
node "$folder/look.mjs" "$folder" "$here"
