#pragma once

#include "tools/deck/Deck.h"

#include <gtest/gtest.h>

namespace Veld::Quor::Tests {

/// Whether the decks have the same keywords with equal data; else says where they differ first.
testing::AssertionResult SayTheSame(const Tools::Deck::Deck& a, const Tools::Deck::Deck& b);

} // namespace Veld::Quor::Tests
