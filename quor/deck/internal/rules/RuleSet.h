#pragma once

#include "quor/deck/internal/rules/PhysicalRole.h"
#include "quor/foundation/SectionType.h"
#include "quor/syntax/SummaryCategories.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The items of keywords that a rule is about, by name.
struct ItemSelection {
    std::vector<std::string> keywords; ///< empty: all
    std::vector<std::string> except; ///< keywords that it isn't about
    std::vector<std::string> items; ///< empty: the elements of a list of texts that the keyword has as data
    std::vector<Keywords::SectionType::Enum> sections; ///< empty: all
    std::optional<Keywords::SummaryEntity::Enum> entity; ///< of the output vectors; none: any keyword
    std::string unless; ///< an item: a record that gives it is left out; may be empty
};

/// Names of one kind: which items define them, and which must name one that is defined.
struct NameRule {
    struct Use {
        ItemSelection where;
        bool isDefinition = false;
        bool mayComeFirst = false; ///< before the definition: judged at the end of the deck
    };

    std::string noun; ///< "well"
    std::vector<std::string> always; ///< names that are there without a definition, in upper case
    std::vector<std::string> ignored; ///< words that are no names, in upper case
    bool areArrays = false; ///< the arrays of the language are there without a definition
    bool hasPatterns = false; ///< '*' stands for any characters, '?' for one
    std::string lists; ///< the noun of the names that begin with '*'; empty: none do
    std::vector<Use> uses;
};

/// A whole number that counts along a size of the deck.
struct IndexRule {
    ItemSelection where;
    std::string size; ///< "NX"
};

/// Two whole numbers of a record, the first not above the last.
struct OrderRule {
    ItemSelection where; ///< its items: first and last
};

/// Arrays whose numbers choose from so many tables or regions.
struct RegionRule {
    std::vector<std::string> arrays;
    std::string size;
    std::string what; ///< "saturation tables"
};

/// A keyword whose records give one number to all cells of an array.
struct AssignmentRule {
    std::vector<std::string> keywords;
    std::string array; ///< the item that names the array
    std::string value; ///< the item that is a number
};

/// What a whole deck must have.
struct NeedRule {
    std::vector<std::string> anyOf;
    std::string in; ///< the section keyword at which it is missed
    std::string what; ///< "properties of oil"
    std::vector<std::string> when; ///< keywords that must all be there; the first is named as the reason
    std::vector<std::string> unless; ///< keywords of which none may be there
};

/// Keywords of which a deck has one at most.
struct ExclusiveRule {
    std::vector<std::string> keywords;
    std::string what; ///< "system of units"
};

/// How many names of a kind there may be.
struct CountRule {
    std::string noun; ///< of a `NameRule`
    std::string size; ///< "MAXWELLS"
    std::string setBy; ///< the keyword that gives it: without it nothing is judged
};

/// What keywords, or items of them, are in the physics of a deck.
struct RoleRule {
    PhysicalRole::Enum role;
    std::vector<std::string> keywords;
    std::string item; ///< empty: the keyword itself
};

/// Numbers that are plausible.
struct MagnitudeRule {
    std::vector<std::string> keywords;
    std::vector<std::string> items; ///< empty: the numbers of the list that the keyword carries
    double least; ///< in METRIC units
    double greatest;
    bool isAlone; ///< others are wrong in any system of units
};

/// What holds between the keywords of a deck, as documents of rules say it.
struct RuleSet {
    std::vector<NameRule> names;
    std::vector<IndexRule> indices;
    std::vector<OrderRule> orders;
    std::vector<RegionRule> regions;
    std::vector<AssignmentRule> assignments;
    std::vector<NeedRule> needs;
    std::vector<ExclusiveRule> exclusives;
    std::vector<std::string> once; ///< keywords that a deck has once at most
    std::vector<CountRule> counts;
    std::vector<RoleRule> roles;
    std::vector<MagnitudeRule> magnitudes;
    std::vector<std::string> whole; ///< what a deck has that is no part of one
    std::vector<std::string> localGrids; ///< keywords in whose scope numbers count along other sizes
    std::vector<std::string> openers; ///< keywords that bring in what the deck doesn't show
};

} // namespace Veld::Quor::Core::Decks
