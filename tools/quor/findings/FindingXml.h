#pragma once

#include "quor/deck/Finding.h"

#include <string>

namespace Veld::Quor::Tools {

/// The findings of a deck as a suite of JUnit's reports: each error is a test that failed, each warning too
/// or, without `failsOnWarnings`, a test that passed. A deck without findings is one test that passed.
std::string JUnitSuite(const std::string& deck, const Core::Decks::Findings& findings, bool failsOnWarnings);

/// A suite of one test that could not be run.
std::string JUnitFailure(const std::string& deck, const std::string& message);

/// The report on these suites.
std::string JUnitReport(const std::string& suites);

} // namespace Veld::Quor::Tools
