#pragma once

#include "quor/deck/Deck.h"

#include <gtest/gtest.h>

namespace Veld::Quor::Tests {

/// Whether the decks have the same keywords with equal data; else says where they differ first.
testing::AssertionResult SayTheSame(const Core::Decks::Deck& a, const Core::Decks::Deck& b);

} // namespace Veld::Quor::Tests
