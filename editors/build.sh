#!/bin/sh
# build.sh QUOR FOLDER [pack]: makes the colours of decks in FOLDER, compiles the VS Code extension in FOLDER/vscode and runs its
# tests against the program QUOR; with "pack", packs the extension into one file in FOLDER.
set -eu

quor=$(realpath "$1") folder=$2 pack=${3:-}
editors=$(dirname "$(realpath "$0")")
install="npm ci --ignore-scripts --no-audit --no-fund --loglevel=error"

mkdir -p "$folder"
folder=$(realpath "$folder")
python3 "$editors/grammar/make_grammars.py" "$quor" "$folder"

mkdir -p "$folder/vscode/syntaxes"
cp -r "$editors/vscode/." "$editors/../LICENSE" "$folder/vscode"
cp "$folder/quor-deck.tmLanguage.json" "$folder/vscode/syntaxes"
cd "$folder/vscode"
$install >/dev/null
npm run --silent compile
QUOR=$quor node --test out/test/ >"$folder/tests.txt" || { cat "$folder/tests.txt"; exit 1; }
[ "$pack" = pack ] || exit 0

mkdir -p "$folder/pack"
cp "$editors/vscode-pack/"* "$folder/pack"
(cd "$folder/pack" && $install >/dev/null)
"$folder/pack/node_modules/.bin/vsce" package --allow-missing-repository --out "$folder" >"$folder/pack.txt" 2>&1 ||
    { cat "$folder/pack.txt"; exit 1; }
