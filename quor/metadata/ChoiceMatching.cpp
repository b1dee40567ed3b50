#include "quor/metadata/internal/ChoiceMatching.h"

#include "quor/foundation/service/MatchPolicy.h"
#include "quor/foundation/service/Strings.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace Veld::Quor::Core::Keywords {

ChoiceMatch IKeywordChoiceMD::Match(std::string_view text) const
{
    const std::string word(text);
    const int index = GetIndex(word);
    if (index < 0)
        return {};
    const bool isWord = Service::AllBlanks(word) || Service::NoCaseStringEqual(GetChoice(index), word);
    return {index, isWord ? ChoiceMatch::Kind::Word : ChoiceMatch::Kind::Abbreviation, {}, !isWord};
}

namespace Internal {

namespace {

using Alias = AliasesMDImpl::Alias;
using Kind = ChoiceMatch::Kind;

constexpr int none = -1;

std::string ToUpper(std::string_view text)
{
    std::string upper(text);
    Service::StringToUpper(upper);
    return upper;
}

const std::string& WordOf(const Choices& choices, int index)
{
    return choices[static_cast<std::size_t>(index)].text;
}

template <class Condition>
int FindFirst(const Choices& choices, Condition condition)
{
    const auto at = std::find_if(choices.begin(), choices.end(), condition);
    return at == choices.end() ? none : static_cast<int>(at - choices.begin());
}

int FindBlank(const Choices& choices)
{
    return FindFirst(choices, [](const auto& choice) { return Service::AllBlanks(choice.text); });
}

ChoiceMatch PlainWord(int index)
{
    return index == none ? ChoiceMatch{} : ChoiceMatch{index, Kind::Word, {}, false};
}

/// The shortest word or alias that starts with the text, and among equals the first.
class Candidates {
public:
    explicit Candidates(const std::string& upper)
        : upper_(upper)
    {
    }

    void Add(int index, const KeywordChoiceMDImpl::ChoiceMD& choice);
    ChoiceMatch GetBest(const Choices& choices) const;

private:
    bool Improves(const std::string& name, int index);

    const std::string& upper_;
    int index_ = none;
    std::size_t length_ = std::numeric_limits<std::size_t>::max();
    const Alias* alias_ = nullptr; // that is the best; null if it is a word
    const Alias* lastAlias_ = nullptr; // that was the best so far
};

bool Candidates::Improves(const std::string& name, int index)
{
    if (name.size() >= length_ || !name.starts_with(upper_))
        return false;
    index_ = index;
    length_ = name.size();
    alias_ = nullptr;
    return true;
}

void Candidates::Add(int index, const KeywordChoiceMDImpl::ChoiceMD& choice)
{
    // Wanted: `lastAlias_` stays if a word improves, so an earlier, longer, hidden alias of another choice
    // makes the match a deprecated one.
    Improves(choice.text, index);
    for (const Alias& alias : choice.aliases.GetAliasList()) {
        if (Improves(alias.first, index))
            alias_ = lastAlias_ = &alias;
    }
}

ChoiceMatch Candidates::GetBest(const Choices& choices) const
{
    if (index_ == none)
        return {};
    if (lastAlias_ && lastAlias_->second)
        return {index_, Kind::Deprecated, lastAlias_->first, true};
    // Wanted: lengths decide, so an alias as long as the word passes in silence.
    const bool needsWarning = WordOf(choices, index_).size() != upper_.size();
    const bool isWhole = length_ == upper_.size();
    if (!alias_)
        return {index_, isWhole ? Kind::Word : Kind::Abbreviation, {}, needsWarning};
    return {index_, isWhole ? Kind::Alias : Kind::Abbreviation, alias_->first, needsWarning};
}

/// Those of `candidates` whose word has the character of `upper` at `position`.
std::vector<int> AgreeingAt(std::size_t position, const std::string& upper, const Choices& choices,
    const std::vector<int>& candidates)
{
    std::vector<int> agreeing;
    for (const int index : candidates) {
        const std::string& word = WordOf(choices, index);
        if (word.size() > position && word[position] == upper[position])
            agreeing.push_back(index);
    }
    return agreeing;
}

/// Of the words that agree with the text furthest from its start the shortest; aliases do not count. A text
/// whose first character starts no word has no match.
ChoiceMatch MatchLax(const Choices& choices, const std::string& upper)
{
    std::vector<int> candidates(choices.size());
    for (std::size_t index = 0; index < choices.size(); ++index)
        candidates[index] = static_cast<int>(index);
    for (std::size_t position = 0; position < upper.size(); ++position) {
        std::vector<int> next = AgreeingAt(position, upper, choices, candidates);
        if (next.empty() && position > 0)
            break;
        candidates = std::move(next);
        if (candidates.size() <= 1)
            break;
    }
    const auto shortest = std::min_element(candidates.begin(), candidates.end(),
        [&](int a, int b) { return WordOf(choices, a).size() < WordOf(choices, b).size(); });
    return shortest == candidates.end() ? ChoiceMatch{} : ChoiceMatch{*shortest, Kind::Lax, {}, true};
}

} // namespace

int FindWord(const Choices& choices, std::string_view text)
{
    const std::string upper = ToUpper(text);
    if (Service::AllBlanks(upper))
        return FindBlank(choices);
    return FindFirst(choices, [&](const auto& choice) { return choice.text == upper; });
}

ChoiceMatch MatchChoice(const Choices& choices, std::string_view text)
{
    const std::string upper = ToUpper(text);
    if (Service::AllBlanks(upper))
        return PlainWord(FindBlank(choices));
    Candidates candidates(upper);
    for (std::size_t index = 0; index < choices.size(); ++index)
        candidates.Add(static_cast<int>(index), choices[index]);
    ChoiceMatch match = candidates.GetBest(choices);
    if (match.kind == Kind::None && Service::UseLaxMatch())
        return MatchLax(choices, upper);
    return match;
}

std::string WarningOf(const Choices& choices, const ChoiceMatch& match, std::string_view text)
{
    const std::string& word = WordOf(choices, match.index);
    if (match.kind == Kind::Deprecated)
        return match.alias + " is a deprecated synonym for " + word
            + " and may be removed in a future release; please use " + word + ".";
    return ToUpper(text) + " has matched option " + word + "; please use " + word + " to avoid ambiguity.";
}

} // namespace Internal

} // namespace Veld::Quor::Core::Keywords
