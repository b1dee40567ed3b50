// Makes the keywords of the output vectors of the SUMMARY section.
//
//   vectors OUTPUT.xml TABLE.txt...
//
// language/summary/README.md tells what the tables hold. A mistake in one ends the build with file, line and
// column.

#include "language/generate/Files.h"
#include "language/generate/VectorDocument.h"

#include <iostream>

int main(int argc, char** argv)
try {
    if (argc < 3) {
        std::cerr << "usage: vectors OUTPUT.xml TABLE.txt...\n";
        return 2;
    }
    WriteText(argv[1], VectorDocument(ReadVectorTables({argv + 2, argv + argc})));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
