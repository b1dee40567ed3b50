#!/bin/sh
# Writes the report on a deck with the program and looks at it in a browser.  report.sh QUOR FOLDER DECK
set -eu
quor=$1 folder=$2 deck=$3 here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$folder"
mkdir -p "$folder"
"$quor" report "$deck" -o "$folder/report-of-deck.html"
cp "$here/report.html" "$folder"
"$here/browse.sh" "$folder/report.html" "$folder/report.log"
