#include "quor/deck/internal/edit/NewWords.h"

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/read/DataPlan.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

class WordMaker {
public:
    WordMaker(const KeywordInstance& keyword, const ValuePath& path)
        : keyword_(keyword)
        , path_(path)
        , scalar_(*FindScalar(*keyword.data, path))
    {
    }

    std::optional<NewWord> Make(const NewValue& value) const;
    std::optional<NewWord> MakeDefault(const Target& target) const;

private:
    ScalarValue ToScalar(bool value) const { return Checked(MDType::Boolean, value); }
    ScalarValue ToScalar(int value) const;
    ScalarValue ToScalar(double value) const;
    ScalarValue ToScalar(const std::string& value) const;
    ScalarValue Checked(MDType::Enum type, ScalarValue value) const;
    int FindChoice(const std::string& word) const;
    void CheckLine(const std::string& line) const;
    bool EndsAList(const std::string& word) const;
    std::string Named() const;

    const KeywordInstance& keyword_;
    const ValuePath& path_;
    ScalarSlot scalar_;
};

std::optional<NewWord> WordMaker::Make(const NewValue& value) const
{
    const ScalarValue scalar = std::visit([this](const auto& held) { return ToScalar(held); }, value.Get());
    if (scalar == scalar_.GetValue())
        return std::nullopt;
    try {
        std::string word = WordOf(*scalar_.md, scalar);
        if (EndsAList(word))
            word = Quote(word, true);
        return NewWord{std::move(word), scalar_.md->GetType() == MDType::Line};
    } catch (const std::invalid_argument& error) {
        throw EditError(fmt::format("{}: {}", Named(), error.what()));
    }
}

std::optional<NewWord> WordMaker::MakeDefault(const Target& target) const
{
    if (!IsGiven(scalar_.GetValue()))
        return std::nullopt;
    DataPlans plans(target);
    const DataPlan* plan = &plans.Get(*keyword_.data->GetMD());
    const DataPlan* around = nullptr;
    for (const std::size_t index : path_) {
        around = plan;
        plan = &plan->items[plan->type == MDType::List ? 0 : index];
    }
    const bool mayBeMissing = plan->type != MDType::Line
        && (around->type == MDType::List ? ListMD(*around).IsItemDefaultable() : plan->MayBeMissing());
    if (!mayBeMissing)
        throw EditError(fmt::format("{} has no default", Named()));
    return NewWord{};
}

ScalarValue WordMaker::ToScalar(int value) const
{
    if (!CanBeWritten(value))
        throw EditError(fmt::format("{}: a deck can't hold the number {}", Named(), value));
    return Checked(MDType::Integer, value);
}

ScalarValue WordMaker::ToScalar(double value) const
{
    if (!CanBeWritten(value))
        throw EditError(fmt::format("{}: a deck can't hold the number {}", Named(), value));
    return Checked(MDType::Real, value);
}

ScalarValue WordMaker::ToScalar(const std::string& value) const
{
    const MDType::Enum type = scalar_.md->GetType();
    if (type == MDType::Choice)
        return FindChoice(value);
    if (type != MDType::Line)
        return Checked(MDType::String, value);
    CheckLine(value);
    return value;
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

/// A line is read without the blanks around it, and ends where another text would begin.
void WordMaker::CheckLine(const std::string& line) const
{
    const bool isBlank = line.find_first_not_of(" \t") == std::string::npos;
    const bool hasBlanks =
        !isBlank && (line.find_first_of(" \t") == 0 || line.find_last_of(" \t") + 1 == line.size());
    const bool isLine = !isBlank && !hasBlanks && !IsComment(line) && line[0] != '/'
        && line.find_first_of("\r\n") == std::string::npos && !EndsAList(line);
    if (!isLine)
        throw EditError(fmt::format("{}: the text '{}' would not be read as the same line", Named(), line));
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

bool CanBeWritten(int value)
{
    return Service::Optional<int>(value).HasValue();
}

bool CanBeWritten(double value)
{
    return std::isfinite(value) && Service::Optional<double>(value).HasValue();
}

std::optional<NewWord> MakeNewWord(
    const KeywordInstance& keyword, const ValuePath& path, const NewValue& value)
{
    return WordMaker(keyword, path).Make(value);
}

std::optional<NewWord> MakeDefaultWord(
    const KeywordInstance& keyword, const ValuePath& path, const Target& target)
{
    return WordMaker(keyword, path).MakeDefault(target);
}

} // namespace Veld::Quor::Core::Decks
