#!/bin/sh
# documents.sh INCLUDEDIR FOLDER COMPILER DOCUMENT...: each block of C++ in the documents compiles against the install.
set -eu
include=$1 folder=$2 compiler=$3
shift 3
rm -rf "$folder"
mkdir -p "$folder"
for document; do
    awk -v name="$folder/$(basename "$document" .md)" '
        /^```cpp$/ { ++count; head = "#include <quor/Deck.h>\n#include <iostream>\nusing namespace Veld::Quor::Core;\n"; body = ""; inside = 1; next }
        inside && /^```$/ {
            if (body !~ /int main/)
                body = "using namespace Keywords;\nusing namespace Decks;\nint main()\n{\n" body "}\n"
            print head body > (name count ".cpp")
            inside = 0
        }
        inside && /^(#include|using namespace)/ { head = head $0 "\n"; next }
        inside { body = body $0 "\n" }' "$document"
done
for source in "$folder"/*.cpp; do
    "$compiler" -std=c++17 -I"$include" -fsyntax-only "$source"
done
