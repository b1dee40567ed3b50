#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/physics/PhysicsChecks.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"
#include "quor/deck/internal/read/contents/ReadSettings.h"
#include "quor/deck/internal/read/deck/OpenScopes.h"
#include "quor/deck/internal/read/deck/Precedents.h"
#include "quor/deck/internal/read/deck/SectionOrder.h"
#include "quor/deck/internal/read/deck/TimeLine.h"
#include "quor/deck/internal/read/keyword/DataReader.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/read/words/DeckText.h"
#include "quor/deck/internal/rules/RuleChecks.h"
#include "quor/deck/internal/text/Vocabulary.h"

#include <memory>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Reads a deck once: follows sections, precedents, scopes, sizes and dates, and puts its contents together.
class DeckReader {
public:
    /// `language` must outlive it. Throws `SourceError` if the deck can't be read.
    DeckReader(const std::string& path, const ReadSettings& options, const LanguageIndex& language);

    std::unique_ptr<DeckContents> Read();

private:
    void StartIn(Core::Keywords::SectionType::Enum section);
    void ReadHead(const Token& head);
    void ReadUnknown(const Token& head);
    void ReadMisspelt(const Token& head);
    void ReadAs(const Token& head, const Entry& entry);
    void ReadStray(const Token& token);
    const Entry* FindIndented(const Token& word);
    void TakeExtraSlash(bool isAfterFlag);
    std::string StrayMessage(const std::string& word) const;
    void FollowLast(bool isReported, bool isGuess);
    void ReadKeyword(const Token& head, const Entry& entry, bool isGuess = false);
    void EndSection();
    void EnterSection(const Token& head, const Entry& entry);
    bool IsAlone(const Core::Keywords::IKeywordSyntax& syntax);
    void ReadData(KeywordInstance& keyword, const Token& head, bool isReported);
    void CheckNoData(const Token& head);
    void FollowSizes(const KeywordInstance& keyword, const RolesOfKeyword& roles);
    void CompareGrids(const KeywordInstance& pillars);
    void FollowPaths(const KeywordInstance& keyword);

    ReadSettings options_;
    Vocabulary vocabulary_;
    std::unique_ptr<DeckContents> deck_;
    FindingReporter reporter_;
    DeckText text_;
    DataPlans plans_;
    Dimensions dimensions_;
    DataReader data_;
    SectionOrder sections_;
    OpenScopes scopes_;
    Precedents precedents_;
    TimeLine timeLine_;
    RuleChecks rules_;
    PhysicsChecks physics_;

    bool isPart_ = false; // of a deck: what is before and after the text isn't known
    bool mayMissKeywords_ = false; // one could not be made out
    bool mayTakeSlash_ = false; // after a keyword without data a slash does no harm
};

} // namespace Veld::Quor::Core::Decks
