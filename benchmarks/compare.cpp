// Each hot path of the library beside its peer, in one table:  compare PROGRAM [WORD]...
// PROGRAM is quor. With words only the rows that have them all.

#include "benchmarks/support/Comparison.h"

#include <cstdio>
#include <exception>

using namespace Veld::Quor::Benchmarks;

int main(int argc, char** argv)
try {
    if (argc < 2) {
        std::fprintf(stderr, "usage: compare PROGRAM [WORD]...\n");
        return 2;
    }
    SetWanted(argc - 2, argv + 2);
    BeginTable();
    CompareLookups();
    CompareRecords();
    CompareValues();
    CompareLoads();
    CompareDecks(argv[1]);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "error: %s\n", error.what());
    return 1;
}
