#pragma once

#include "tools/deck/DataPlan.h"
#include "tools/deck/Vocabulary.h"

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tests {

/// Changes the text of decks by lines, words and keywords, since a change of bytes seldom makes another
/// keyword.
class DeckMutator {
public:
    explicit DeckMutator(Tools::Deck::Vocabulary& vocabulary);

    /// The answer depends on the text and the seed alone.
    std::string Mutate(std::string_view text, unsigned seed);
    /// `text` with some lines of `other` in it.
    std::string Cross(std::string_view text, std::string_view other, unsigned seed);

private:
    using Lines = std::vector<std::string>;
    using Plan = Tools::Deck::DataPlan;

    std::size_t Pick(std::size_t count);
    bool Toss(std::size_t times = 2) { return Pick(times) == 0; }
    Lines PickRun(const Lines& lines);

    void Change(Lines& lines);
    void CopyRun(Lines& lines);
    void MoveRun(Lines& lines);
    void RemoveRun(Lines& lines);
    void ReplaceWord(Lines& lines);
    void JoinOrSplit(Lines& lines);
    void Insert(Lines& lines, const std::string& text);
    void InsertKeyword(Lines& lines);

    std::string PickWord(const Lines& lines);
    std::string MakeData(const Plan& plan);
    std::string MakeItems(const Plan& record);
    std::string MakeElements(const Plan& list);
    std::string MakeValue(const Plan& item);

    std::minstd_rand random_;
    std::vector<const Core::Keywords::IKeywordSyntax*> syntaxes_;
    Tools::Deck::DataPlans plans_{{}};
};

} // namespace Veld::Quor::Tests
