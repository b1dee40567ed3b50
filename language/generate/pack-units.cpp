// Makes a C++ source of the tables of units.
//
//   pack-units OUTPUT.cpp UNITS.txt MEASUREMENTS.txt
//
// A mistake ends the build with file, line and column. language/units/README.md describes the tables.

#include "language/generate/Files.h"
#include "language/generate/UnitTables.h"

#include <exception>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>

namespace {

std::string SourceOf(const Measurements& measurements)
{
    std::ostringstream source;
    source.precision(std::numeric_limits<double>::max_digits10);
    source << "#include \"quor/metadata/internal/UnitTable.h\"\n\n#include <iterator>\n\n"
           << "namespace Veld::Quor::Core::Keywords::Internal {\n\n"
           << "static constexpr MeasurementUnits rows[] = {";
    for (const auto& [name, units] : measurements) {
        if (units.empty())
            continue;
        source << "\n{\"" << name << "\", {";
        for (const UnitInSystem& unit : units)
            source << "{\"" << unit.name << "\", " << unit.factor << ", " << unit.offset << "},";
        source << "}},";
    }
    source << "\n};\n\nconst UnitTable unitTable = {std::begin(rows), std::end(rows)};\n\n"
           << "} // namespace Veld::Quor::Core::Keywords::Internal\n";
    return source.str();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 4) {
        std::cerr << "usage: pack-units OUTPUT.cpp UNITS.txt MEASUREMENTS.txt\n";
        return 2;
    }
    WriteText(argv[1], SourceOf(ReadMeasurements(argv[2], argv[3])));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
