#pragma once

#include <gtest/gtest.h>

namespace Veld::Quor::Tests {

/// A deck, and its findings as a user sees them.
struct DeckRow {
    const char* name;
    const char* deck;
    const char* findings = "";
};

/// What is found in each of the decks; the test is in `RuleTests.cpp`.
class DeckFindings : public testing::TestWithParam<DeckRow> { };

} // namespace Veld::Quor::Tests
