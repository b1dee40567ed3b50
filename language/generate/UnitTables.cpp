#include "language/generate/UnitTables.h"

#include "language/generate/TableLine.h"
#include "language/generate/UnitExpression.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace {

constexpr const char* unitColumns = "unit factor offset si words";
constexpr const char* measurementColumns = "name METRIC FIELD LAB PVT-M words";
constexpr const char* systems[] = {"METRIC", "FIELD", "LAB", "PVT-M"};

long double NumberOf(const Word& word)
{
    char* end = nullptr;
    const long double number = std::strtold(word.text.c_str(), &end);
    if (*end != '\0' || !(number > 0))
        Fail(word.place, "'" + word.text + "' is no number above 0");
    return number;
}

void AddUnit(TableLine line, SiUnits& units)
{
    const Word name = line.Next("unit");
    SiUnit unit;
    unit.factor = NumberOf(line.Next("factor"));
    if (const Word offset = line.Next("offset"); offset.text != "-")
        unit.offset = NumberOf(offset);
    const Word si = line.Next("si");
    unit.powers =
        si.text == name.text ? std::map<std::string, int>{{name.text, 1}} : ReadUnit(si, units).powers;
    line.Rest("words");
    if (!units.emplace(name.text, unit).second)
        Fail(name.place, "the unit '" + name.text + "' is defined twice; remove one");
}

/// The words between the bars of a word.
std::vector<Word> Alternatives(Word word)
{
    std::replace(word.text.begin(), word.text.end(), '|', ',');
    return CommaSeparated(word);
}

/// `powers` are those of the units read before in the line, and become those of this one.
UnitInSystem ReadAlternatives(
    const Word& word, const SiUnits& units, std::vector<std::map<std::string, int>>& powers)
{
    const std::vector<Word> alternatives = Alternatives(word);
    UnitInSystem unit;
    std::vector<std::map<std::string, int>> own;
    for (const Word& alternative : alternatives) {
        const SiUnit si = ReadUnit(alternative, units);
        unit.name += (unit.name.empty() ? "" : " or ") + alternative.text;
        if (alternatives.size() == 1) {
            unit.factor = static_cast<double>(si.factor);
            unit.offset = static_cast<double>(si.offset);
        }
        if (std::find(own.begin(), own.end(), si.powers) == own.end())
            own.push_back(si.powers);
    }
    if (!powers.empty() && powers != own)
        Fail(word.place, "'" + word.text + "' doesn't measure what the unit before it measures");
    powers = std::move(own);
    return unit;
}

void AddMeasurement(TableLine line, const SiUnits& units, Measurements& measurements)
{
    const Word name = line.Next("name");
    std::vector<UnitInSystem> row;
    std::vector<std::map<std::string, int>> powers;
    for (const char* system : systems) {
        const Word unit = line.Next(system);
        if (unit.text != "-")
            row.push_back(ReadAlternatives(unit, units, powers));
    }
    line.Rest("words");
    if (!row.empty() && row.size() != std::size(systems))
        Fail(name.place, "a measurement has a unit in all systems, or in none");
    if (!measurements.emplace(name.text, std::move(row)).second)
        Fail(name.place, "the measurement '" + name.text + "' is defined twice; remove one");
}

} // namespace

Measurements ReadMeasurements(const std::string& unitsPath, const std::string& measurementsPath)
{
    SiUnits units;
    ForEachLine(unitsPath, unitColumns, [&](const TableLine& line) { AddUnit(line, units); });
    Measurements measurements;
    ForEachLine(measurementsPath, measurementColumns,
        [&](const TableLine& line) { AddMeasurement(line, units, measurements); });
    return measurements;
}
