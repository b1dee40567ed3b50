#pragma once

#include "tools/quor/commands/LoadedLanguage.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// By measurement, how many keywords use it.
using MeasurementCounts = std::map<std::string, std::size_t>;

MeasurementCounts CountMeasurements(const LoadedLanguage::Syntaxes& syntaxes);

/// Whether some real that the keyword carries has the measurement.
bool HasMeasurement(const Core::Keywords::IKeywordSyntax& syntax, const std::string& measurement);

/// The measurement that is `word` in any case; null if there is none. Lasts as long as `counts`.
const std::string* FindMeasurement(const std::string& word, const MeasurementCounts& counts);

/// At most three that `word` is part of or may stand for, the nearest first.
std::vector<std::string> FindNearestMeasurements(const std::string& word, const MeasurementCounts& counts);

} // namespace Veld::Quor::Tools
