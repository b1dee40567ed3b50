#pragma once

#include "quor/deck/internal/rules/NameTable.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows the names of a deck: reports those that nothing defines, and definitions beyond the number that
/// the deck allows. A name is reported once.
class NameChecks {
public:
    explicit NameChecks(const RuleContext& context);

    enum class Outcome {
        Settled, ///< nothing is to be said of it by the rule, here and from now on
        Open, ///< it is judged later, or when it comes again
        Reported, ///< it is undefined
    };
    /// Whether a value names what nothing is to be said of, here and from now on.
    bool IsSettled(const RecordRules::Name& rule, std::string_view name);
    /// A value of the last keyword of the deck.
    Outcome Follow(const RecordRules::Name& rule, std::string_view name, const ValuePosition& position);
    /// Names may be defined by something that could not be read: none is reported from now on.
    void Lose() { isWhole_ = false; }
    /// The same for those of one kind.
    void Lose(std::uint32_t kind) { isLost_[kind] = true; }
    /// A keyword that defines names of the kind could not be read as it is: any word of its text may be one.
    void FollowUnsound(std::uint32_t kind, std::string_view text);
    /// A keyword that names one of the kind was reported for what it lacks before it: if the deck defines
    /// none of the kind, that was said.
    void Excuse(std::uint32_t kind) { isExcused_[kind] = true; }
    /// The same for those that one of the keywords defines, which the deck lacks.
    void LoseDefinedBy(const std::set<std::string>& keywords);
    /// Judges the names that may be defined later. `isWholeDeck`: nothing of the deck is elsewhere.
    void EndDeck(bool isWholeDeck);

    /// Whether an item of the deck makes the array of that name.
    bool MakesArray(std::string_view name) const;

private:
    struct Pending {
        std::uint32_t kind;
        std::uint32_t keyword;
        ValuePosition position;
        std::string name;
        const RecordRules::Name* use; // may come first, or nothing of the kind was defined before it
    };

    struct Limit {
        const CountRule* rule;
        KeywordLimit limit;
    };
    /// What the deck has defined, and how much of that it may.
    struct Count {
        long long count = 0;
        std::vector<Limit> limits;
    };

    void Define(const RecordRules::Name& rule, std::string_view name, const ValuePosition& position);
    void AddCount(std::uint32_t kind, std::string_view name, const ValuePosition& position);
    std::uint32_t KindOf(std::uint32_t kind, std::string_view name) const;
    bool HasDefinitions(std::uint32_t kind) const;
    bool IsFirst(std::uint32_t kind) const;
    bool IsDefined(std::uint32_t kind, std::string_view name);
    bool IsInLanguage(const NameRule& rule, std::string_view name) const;
    void ReportUnknown(const Pending& unknown);
    std::string HintOf(const Pending& unknown);
    std::vector<std::string> FindNear(const Pending& unknown);

    RuleContext context_;
    std::vector<NameTable> names_; // of each kind
    std::vector<Count> counts_; // of each kind
    std::vector<bool> isExcused_;
    std::vector<bool> isLost_;
    std::vector<NameTable> unsure_; // words that may be names
    std::vector<NameTable> waiting_; // names that were used before any of the kind was defined
    std::vector<NameTable> later_; // names that may be defined later
    std::vector<Pending> pending_; // one for each of these
    std::size_t compared_ = 0; // names of the deck, to find those that may be meant
    bool isWhole_ = true;
};

} // namespace Veld::Quor::Core::Decks
