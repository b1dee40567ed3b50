#pragma once

#include "quor/deck/internal/rules/ArrayChecks.h"
#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/MatchChecks.h"
#include "quor/deck/internal/rules/MemberChecks.h"
#include "quor/deck/internal/rules/NameChecks.h"
#include "quor/deck/internal/rules/NumberChecks.h"
#include "quor/deck/internal/rules/PresenceChecks.h"
#include "quor/deck/internal/rules/QuietRecords.h"
#include "quor/deck/internal/rules/RecordChecks.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/SettledNames.h"
#include "quor/deck/internal/rules/TreeChecks.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows a deck as it is read, and checks what the rules say of its keywords.
///
/// What can't be known isn't reported: once something that may define a name could not be read, all names
/// are taken for defined.
class RuleChecks {
public:
    explicit RuleChecks(const RuleContext& context);

    /// What is to be told of the records of the next keyword that is read; null if nothing is.
    RecordWatch* Watch(const Keywords::IKeywordSyntax& syntax, Keywords::SectionType::Enum section);
    /// Follows the last keyword of the deck. `isKnown`: its data are what its text says, without variables
    /// that have no value. `isMisplaced`: it lacks a keyword before it, so that what it names isn't there.
    void Follow(bool isKnown, bool isMisplaced);
    /// Something could not be read.
    void Lose();
    /// `isSure`: no keyword of the deck was missed.
    void EndDeck(bool isSure);

private:
    using Record = Keywords::IKeywordRecordData;

    bool IsOfLocalGrid(std::uint32_t scope);
    void FollowUnsound(const KeywordRules& rules, bool isMisplaced);
    void ExcuseMissing(const KeywordInstance& keyword);
    void FollowUnsound(const std::vector<RecordRules::Name>& names, std::string_view text, bool isMisplaced);
    void FollowUnsound(const RecordRules& rules, std::string_view text, bool isMisplaced);
    void CheckRoot(const RecordRules& rules);
    void CheckRecord(const RecordRules& rules, const Record& record, const ValuePosition& position);
    bool CheckNumbers(const RecordRules& rules, const Record& record, const ValuePosition& position);
    bool CheckNames(const RecordRules& rules, const Record& record, const ValuePosition& position);
    bool CheckUnsettled(
        const RecordRules& rules, const Record& record, const ValuePosition& position, bool& isSettled);
    NameChecks::Outcome FollowNumber(
        const RecordRules::Name& rule, int number, const ValuePosition& position);
    NameChecks::Outcome CheckItem(
        const RecordRules::Name& rule, const Record& record, ValuePosition position);
    void ForgetArray(const RecordRules& rules, const RecordRules::Name& rule, const Record& record);
    void CheckElements(const std::vector<RecordRules::Name>& rules);
    void DefineMatches();
    void EndTrees();

    const DeckContents& deck_;
    RulePlans plans_;
    NameNumbers nameNumbers_;
    NameChecks names_;
    NumberChecks numbers_;
    PresenceChecks presence_;
    RecordChecks records_;
    MemberChecks members_;
    MatchChecks matches_;
    TreeChecks trees_;
    ArrayChecks arrays_;
    SettledNames settled_;
    QuietRecords quiet_;
    bool isOfLocalGrid_ = false; // the last keyword
    bool isWhole_ = true; // nothing was missed
};

} // namespace Veld::Quor::Core::Decks
