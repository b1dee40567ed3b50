#!/bin/sh
# Writes the manual with the program and looks at it: all links, then the search in a browser.  manual.sh QUOR FOLDER
set -eu
quor=$1 folder=$2 here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$folder"
mkdir -p "$folder"
"$quor" manual "$folder/manual" 2>"$folder/said"
cat "$folder/said"
"$quor" list | awk '{ print $1 }' >"$folder/names"
python3 "$here/links.py" "$folder/manual" "$folder/names"
cp "$here/search.html" "$folder"
"$here/browse.sh" "$folder/search.html" "$folder/search.log"
