#!/bin/sh
# Writes the report on a deck, and on that and another one, and looks at them in a browser.  report.sh QUOR FOLDER DECK
set -eu
quor=$1 folder=$2 deck=$3 here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$folder"
mkdir -p "$folder"
"$quor" report "$deck" -o "$folder/report-of-deck.html"
"$here/other.sh" "$deck" "$folder/other"
other=other/$(basename "$deck")
sed -i 's,^  Larkstone,  other/Larkstone,' "$folder/$other" # a title that begins as the folder does
(cd "$folder" && "$quor" report "$deck" --compare "$other" -o whole.html)
# As in a browser that can't unpack.
sed 's|^<script>$|<script>delete window.DecompressionStream;|' "$folder/whole.html" >"$folder/comparison.html"
cp "$here/report.html" "$folder"
"$here/browse.sh" "$folder/report.html" "$folder/report.log"
