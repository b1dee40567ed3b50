#pragma once

#include "quor/deck/internal/check/FindingVoice.h"
#include "quor/deck/internal/rules/Role.h"
#include "quor/foundation/SectionType.h"
#include "quor/syntax/SummaryCategories.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What a record must say for a rule to be about it.
struct RecordCondition {
    std::string item; ///< has a value that is not 0; empty: there is no condition
    std::string word; ///< has this one; '*' stands for any characters, '?' for one; may be empty
};

/// The items of keywords that a rule is about, by name.
struct ItemSelection {
    std::vector<std::string> keywords; ///< empty: all
    std::vector<std::string> except; ///< keywords that it isn't about
    std::vector<std::string> items; ///< empty: the elements of a list of texts that the keyword has as data
    std::vector<Keywords::SectionType::Enum> sections; ///< empty: all
    std::optional<Keywords::SummaryEntity::Enum> entity; ///< of the output vectors; none: any keyword
    std::string unless; ///< an item: a record that gives it is left out; may be empty
    RecordCondition when; ///< of a record
};

/// Names of one kind: which items define them, and which must name one that is defined.
struct NameRule {
    struct Use {
        FindingVoice voice;
        ItemSelection where;
        bool isDefinition = false;
        bool mayComeFirst = false; ///< before the definition: judged at the end of the deck
        bool isUncounted = false; ///< a definition that no `CountRule` counts
        bool isFirstOnly = false; ///< of a list of names its first
    };

    std::string noun; ///< "well"
    std::vector<std::string> always; ///< names that are there without a definition, in upper case
    std::vector<std::string> ignored; ///< words that are no names, in upper case
    bool areArrays = false; ///< the arrays of the language are there without a definition
    bool areVectors = false; ///< the output vectors of the language are, and what the deck defines too
    bool hasPatterns = false; ///< '*' stands for any characters, '?' for one
    std::string lists; ///< the noun of the names that begin with '*'; empty: none do
    std::vector<Use> uses;

    bool AreOfLanguage() const { return areArrays || areVectors; }
};

/// Of one record that must match another.
constexpr std::size_t mostMatchNumbers = 3;

/// Records that must match one that defines the same thing: a completion of a well, a segment.
struct MatchRule {
    struct Use {
        FindingVoice voice;
        std::vector<std::string> keywords;
        std::vector<std::string> items; ///< the name of the owner, and numbers; without a value: any
        std::string last; ///< an item: the last of `items` runs from its number to this one; may be empty
        std::string unless; ///< an item: a record that gives it is left out; may be empty
        bool isDefinition = false;
    };

    std::string what; ///< "connection"
    std::vector<std::string> always; ///< numbers that need no definition
    std::vector<Use> uses;
};

/// A whole number that counts along a size of the deck.
struct IndexRule {
    FindingVoice voice;
    ItemSelection where;
    std::string size; ///< "NX"
    std::string
        grid; ///< an item: a record that gives it counts along the size of that local grid; may be empty
    std::vector<std::string> arrays; ///< whose numbers are within the size too
};

/// Two whole numbers of a record, the first not above the last.
struct OrderRule {
    FindingVoice voice;
    ItemSelection where; ///< its items: first and last
};

/// Arrays whose numbers choose from so many tables or regions.
struct RegionRule {
    FindingVoice voice;
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
    FindingVoice voice;
    std::vector<std::string> anyOf;
    std::string in; ///< the section keyword at which it is missed
    std::string what; ///< "properties of oil"
    std::vector<std::string> when; ///< keywords that must all be there; the first is named as the reason
    std::vector<std::string> unless; ///< keywords of which none may be there
    std::string size; ///< that must be at least `least`; may be empty
    long long least = 0;
};

/// Keywords of which a deck has one at most.
struct ExclusiveRule {
    FindingVoice voice;
    std::vector<std::string> keywords;
    std::string what; ///< "system of units"
};

/// Keywords that a deck has once at most.
struct OnceRule {
    FindingVoice voice;
    std::vector<std::string> keywords;
};

/// A size that a keyword of RUNSPEC gives. Where it gives none, nothing is judged.
struct SizeLimit {
    std::string item; ///< "MAXWELLS"
    std::string keyword; ///< "WELLDIMS"
    std::string name; ///< of the size: "WELLDIMS.MAXWELLS"
};

/// A size that a keyword chooses.
struct SizeRule {
    std::string name; ///< "NTROCK"
    std::string keyword; ///< that chooses
    std::string item; ///< whose word chooses; empty: the keyword itself, by being there
    std::vector<std::string> words; ///< of the item
    /// For each of them, and with another word any size; or without the keyword and with it. The first holds
    /// without it.
    std::vector<std::string> sizes;
};

/// How many names of a kind there may be.
struct CountRule {
    FindingVoice voice;
    std::string noun; ///< of a `NameRule`
    SizeLimit limit;
};

/// How many records, or cells of them, a keyword may have for each of its owners.
struct MemberRule {
    FindingVoice voice;
    std::vector<std::string> keywords;
    std::string owner; ///< an item; empty: all records together
    std::vector<std::string> items; ///< what tells members apart; empty: each record is one
    std::string last; ///< an item: the last of `items` runs from its number to this one; may be empty
    bool hasOneOwner = false; ///< a member that another owner has was moved from it
    std::string what; ///< "connections"
    RecordCondition when;
    SizeLimit limit;
};

/// How long a list may be: a table's rows, or a record's list of values.
struct LengthRule {
    FindingVoice voice;
    std::vector<std::string> keywords;
    std::string item; ///< the list; empty: each table of a keyword that carries tables
    std::string what; ///< "rows"
    SizeLimit limit;
};

/// What no two records have in common.
struct DistinctRule {
    FindingVoice voice;
    std::vector<std::string> keywords;
    std::vector<std::string> items;
    std::string last; ///< as that of a `MemberRule`
    RecordCondition when; ///< of both records
    bool isOfStep = false; ///< records of all these keywords in one report step, not of one keyword
    bool isOfOthers = false; ///< of two keywords of different names
};

/// What a record must give when it gives something else.
struct RequireRule {
    FindingVoice voice;
    std::vector<std::string> keywords;
    RecordCondition when;
    std::vector<std::string> items; ///< one of them
    std::vector<std::string> present; ///< or one of these keywords
    std::vector<std::string> with; ///< only if the deck has all of these
    std::vector<RecordCondition> unless; ///< none of these holds
};

/// Names that form a tree.
struct TreeRule {
    FindingVoice voice;
    std::string noun; ///< of a `NameRule`
    std::vector<std::string> keywords; ///< that place a name below another
    std::string child; ///< item
    std::string parent; ///< item
    std::vector<std::string> memberKeywords; ///< whose records put something into the name of item `child`
    std::string member; ///< item that names this; empty if there are no such keywords
    std::string what; ///< this: "wells"
};

/// Arrays that a section has once, unless an operation comes between.
struct OverwriteRule {
    FindingVoice voice;
    std::vector<Keywords::SectionType::Enum> sections; ///< empty: all
    std::vector<std::string> except; ///< arrays
};

/// What keywords, or items of them, are in the physics of a deck.
struct RoleRule {
    Role::Enum role;
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

/// Keywords that name a local grid, and give its sizes by items of the names of those of the deck.
struct LocalGridRule {
    std::vector<std::string> keywords;
    std::string name; ///< an item
};

/// What holds between the keywords of a deck, as documents of rules say it.
struct RuleSet {
    std::vector<NameRule> names;
    std::vector<MatchRule> matches;
    std::vector<IndexRule> indices;
    std::vector<OrderRule> orders;
    std::vector<RegionRule> regions;
    std::vector<AssignmentRule> assignments;
    std::vector<NeedRule> needs;
    std::vector<ExclusiveRule> exclusives;
    std::vector<OnceRule> once;
    std::vector<SizeRule> sizes;
    std::vector<CountRule> counts;
    std::vector<RoleRule> roles;
    std::vector<MagnitudeRule> magnitudes;
    std::vector<MemberRule> members;
    std::vector<LengthRule> lengths;
    std::vector<DistinctRule> distinct;
    std::vector<RequireRule> requirements;
    std::vector<TreeRule> trees;
    std::vector<OverwriteRule> overwrites;
    std::vector<std::string> ownCodes; ///< of findings, beside those of the library, each once
    std::vector<std::string> whole; ///< what a deck has that is no part of one
    std::vector<std::string> localGrids; ///< keywords in whose scope numbers count along other sizes
    std::vector<LocalGridRule> namedGrids;
    std::vector<std::string> openers; ///< keywords that bring in what the deck doesn't show
};

} // namespace Veld::Quor::Core::Decks
