#pragma once

#include "tools/quor/syntax/SyntaxSnapshot.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// One thing that two documents say of a keyword in other ways.
struct SyntaxChange {
    std::string keyword;
    std::string item; ///< "ORAT", or the way to it; empty: the keyword itself
    std::string text; ///< what changed: part of a sentence
    bool breaks; ///< whether decks that were right may be wrong now, or mean something else
};

using SyntaxChanges = std::vector<SyntaxChange>;

/// From `a` to `b`, by keyword. `isAddition`: what `b` lacks remains.
SyntaxChanges Compare(const SyntaxSnapshot& a, const SyntaxSnapshot& b, bool isAddition);

/// What the data of a keyword may be, from `a` to `b`: adds its changes.
void CompareData(const std::string& keyword, const nlohmann::ordered_json& a, const nlohmann::ordered_json& b,
    SyntaxChanges& changes);

/// Adds where a keyword, an item or a choice was and is no longer valid, or now is too. Both are objects of
/// objects or arrays of words; null: anywhere. `breaksIfMore`: of where something has no effect.
void CompareValidity(const SyntaxChange& about, const nlohmann::ordered_json& a,
    const nlohmann::ordered_json& b, bool breaksIfMore, SyntaxChanges& changes);

} // namespace Veld::Quor::Tools
