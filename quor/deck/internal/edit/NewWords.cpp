#include "quor/deck/internal/edit/NewWords.h"

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/edit/WritableValues.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// The word that is alone on the line; else the line.
std::string LoneWordOf(const std::string& line)
{
    const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
    return IsEmpty(line.substr(end)) ? line.substr(0, end) : line;
}

class WordMaker {
public:
    WordMaker(const KeywordInstance& keyword, const ValuePath& path, const Target& target)
        : keyword_(keyword)
        , path_(path)
        , target_(target)
        , scalar_(*FindScalar(*keyword.data, path))
    {
    }

    std::optional<NewWord> Make(const NewValue& value) const;
    std::optional<NewWord> MakeDefault() const;

private:
    ScalarValue ToScalar(bool value) const { return Checked(MDType::Boolean, value); }
    ScalarValue ToScalar(int value) const { return Checked(MDType::Integer, value); }
    ScalarValue ToScalar(double value) const { return Checked(MDType::Real, value); }
    ScalarValue ToScalar(const std::string& value) const;
    ScalarValue Checked(MDType::Enum type, ScalarValue value) const;
    int FindChoice(const std::string& word) const;
    bool MayBeMissing() const;
    bool EndsAList(const std::string& word) const;
    std::string Named() const;

    const KeywordInstance& keyword_;
    const ValuePath& path_;
    Target target_;
    ScalarSlot scalar_;
};

std::optional<NewWord> WordMaker::Make(const NewValue& value) const
{
    const ScalarValue scalar = std::visit([this](const auto& held) { return ToScalar(held); }, value.Get());
    if (scalar == scalar_.GetValue())
        return std::nullopt;
    try {
        const bool isLine = scalar_.md->GetType() == MDType::Line;
        const auto* const text = std::get_if<std::string>(&scalar);
        const bool isBlank = text && text->empty(); // else it doesn't matter, and takes time
        std::string word = MakeWord(*scalar_.md, scalar, isBlank && MayBeMissing());
        if (isLine && EndsAList(LoneWordOf(word)))
            throw std::invalid_argument(
                fmt::format("can't write the line '{}': it ends the list", Shorten(word)));
        if (EndsAList(word))
            word = Quote(word, true);
        return NewWord{std::move(word), isLine};
    } catch (const std::invalid_argument& error) {
        throw EditError(fmt::format("{}: {}", Named(), error.what()));
    }
}

std::optional<NewWord> WordMaker::MakeDefault() const
{
    if (!IsGiven(scalar_.GetValue()))
        return std::nullopt;
    if (scalar_.md->GetType() == MDType::Line || !MayBeMissing())
        throw EditError(fmt::format("{} has no default", Named()));
    return NewWord{};
}

/// Whether a deck may leave the value to its default.
bool WordMaker::MayBeMissing() const
{
    DataPlans plans(target_);
    const DataPlan* plan = &plans.Get(*keyword_.data->GetMD());
    const DataPlan* around = nullptr;
    for (const std::size_t index : path_) {
        around = plan;
        plan = &plan->items[plan->type == MDType::List ? 0 : index];
    }
    return around->type == MDType::List ? ListMD(*around).IsItemDefaultable() : plan->MayBeMissing();
}

ScalarValue WordMaker::ToScalar(const std::string& value) const
{
    const MDType::Enum type = scalar_.md->GetType();
    if (type == MDType::Choice)
        return FindChoice(value);
    return type == MDType::Line ? ScalarValue(value) : Checked(MDType::String, value);
}

ScalarValue WordMaker::Checked(MDType::Enum type, ScalarValue value) const
{
    if (scalar_.md->GetType() != type)
        throw DataAccessError(fmt::format(
            "{} is {}, not {}", Named(), MDType::ToString(scalar_.md->GetType()), MDType::ToString(type)));
    return value;
}

int WordMaker::FindChoice(const std::string& word) const
{
    const auto& choice = static_cast<const IKeywordChoiceMD&>(*scalar_.md);
    std::string words;
    for (int i = 0; i < choice.NumChoices(); ++i) {
        if (ToUpper(choice.GetChoice(i)) == ToUpper(word))
            return i;
        words.append(words.empty() ? "" : ", ").append(choice.GetChoice(i));
    }
    throw DataAccessError(fmt::format("{} has no choice '{}'; expected one of {}", Named(), word, words));
}

/// Whether the word would end a list that the value is in.
bool WordMaker::EndsAList(const std::string& word) const
{
    const IKeywordData* node = keyword_.data.get();
    for (std::size_t i = 0; i < path_.size(); ++i) {
        if (node->GetMD()->GetType() == MDType::List) {
            const auto* const words =
                static_cast<const IKeywordListMD&>(*node->GetMD()).GetCustomReadTermination();
            bool ignored = false;
            if (words && words->Matches(word, ignored))
                return true;
        }
        if (i + 1 < path_.size())
            node = &ChildOf(*node, path_[i]);
    }
    return false;
}

std::string WordMaker::Named() const
{
    const std::string& name = keyword_.syntax->GetName();
    const std::string item = ItemName(*scalar_.md);
    return item.empty() ? fmt::format("{}: the value", name) : fmt::format("{}: item '{}'", name, item);
}

} // namespace

std::optional<NewWord> MakeNewWord(
    const KeywordInstance& keyword, const ValuePath& path, const NewValue& value, const Target& target)
{
    return WordMaker(keyword, path, target).Make(value);
}

std::optional<NewWord> MakeDefaultWord(
    const KeywordInstance& keyword, const ValuePath& path, const Target& target)
{
    return WordMaker(keyword, path, target).MakeDefault();
}

} // namespace Veld::Quor::Core::Decks
