#include "tests/trust/Mistake.h"

#include "quor/metadata/IKeywordItemMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/ISummaryMnemonicInfo.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace Veld::Quor::Trust {

using namespace Core::Decks;
using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

bool IsRequired(const Value& value)
{
    const auto& md = static_cast<const IKeywordItemMD&>(*value.md);
    return value.record && md.GetType() != MDType::Line
        && !value.record->IsOptional(static_cast<int>(value.path.back()))
        && !md.IsDefaultSpecified(SimulatorType::Any);
}

bool IsInRow(const SampleDeck& deck, const Value& value, const std::string& which)
{
    if (value.path.size() < 2 || !value.record)
        return false;
    const bool isFirst = value.path[value.path.size() - 2] == 0;
    return which == "first" ? isFirst : which == "later" ? !isFirst : !FindInRow(deck, value, 1);
}

bool IsOfType(const SampleDeck& deck, const Value& value, const std::string& type)
{
    if (type == "first" || type == "later" || type == "last")
        return IsInRow(deck, value, type);
    const MDType::Enum is = value.md->GetType();
    if (type == "integer")
        return is == MDType::Integer;
    if (type == "real")
        return is == MDType::Real;
    if (type == "number")
        return is == MDType::Integer || is == MDType::Real;
    if (type == "choice")
        return is == MDType::Choice;
    if (type == "string")
        return is == MDType::String;
    if (type == "head")
        return value.list && value.path.back() == 0;
    if (type == "array")
        return value.list != nullptr;
    if (type == "given")
        return value.list && !value.list->IsItemDefaultable();
    if (type == "identifier")
        return value.record && value.record->IsIdentifier(static_cast<int>(value.path.back()));
    return type == "required" ? IsRequired(value) : type == "record" && value.record;
}

} // namespace

Where::Where(const std::string& text)
{
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (word.front() == '@')
            sections_.push_back(word.substr(1));
        else if (word.front() == '-')
            except_.push_back(word.substr(1));
        else if (word.front() == '%')
            entity_ = word.substr(1);
        else if (word.front() == '?')
            conditions_.push_back(word.substr(1));
        else if (word.front() == '+')
            types_.push_back(word.substr(1));
        else if (const std::size_t point = word.find('.'); point != std::string::npos)
            items_.push_back({word.substr(0, point), word.substr(point + 1)});
        else
            items_.push_back({word, ""});
    }
}

bool Where::HasKeyword(const SampleDeck& deck, std::size_t keyword, const std::string* item) const
{
    const DeckKeyword at = deck.GetDeck()[keyword];
    if (!sections_.empty()
        && std::find(sections_.begin(), sections_.end(), SectionType::ToString(at.GetSection()))
            == sections_.end())
        return false;
    if (std::any_of(
            except_.begin(), except_.end(), [&](const std::string& name) { return at.IsNamed(name); }))
        return false;
    const auto* const summary = at.GetSyntax().GetSummaryMnemonicInfo();
    const auto entity = summary ? summary->GetEntity() : Core::Service::Optional<SummaryEntity::Enum>();
    if (!entity_.empty() && !(entity && *entity == SummaryEntity::FromString(entity_)))
        return false;
    return items_.empty() || std::any_of(items_.begin(), items_.end(), [&](const Item& one) {
        return (one.keyword == "*" || at.IsNamed(one.keyword))
            && (!item || one.item.empty() || one.item == *item);
    });
}

bool Where::HasKeyword(const SampleDeck& deck, std::size_t keyword) const
{
    return HasKeyword(deck, keyword, nullptr);
}

bool Where::HasValue(const SampleDeck& deck, const Value& value) const
{
    return HasKeyword(deck, value.keyword, &value.item)
        && std::all_of(types_.begin(), types_.end(),
            [&](const std::string& type) { return IsOfType(deck, value, type); })
        && std::all_of(conditions_.begin(), conditions_.end(), [&](const std::string& condition) {
               const std::size_t end = std::min(condition.find('='), condition.size());
               const Value* other = FindSibling(deck, value, condition.substr(0, end));
               std::string word = condition.substr(std::min(end + 1, condition.size()));
               const bool isStart = !word.empty() && word.back() == '*';
               if (isStart)
                   word.pop_back();
               return other
                   && (word.empty() || (isStart ? other->text.starts_with(word) : other->text == word));
           });
}

std::vector<const Value*> FindValues(const SampleDeck& deck, const Where& where)
{
    std::vector<const Value*> found;
    for (const Value& value : deck.GetValues()) {
        if (where.HasValue(deck, value))
            found.push_back(&value);
    }
    return found;
}

std::vector<std::size_t> FindKeywords(const SampleDeck& deck, const Where& where)
{
    std::vector<std::size_t> found;
    for (const DeckKeyword keyword : deck.GetDeck()) {
        if (keyword.GetRange().length > 0 && where.HasKeyword(deck, keyword.GetIndex()))
            found.push_back(keyword.GetIndex());
    }
    return found;
}

const Value* ChooseValue(const SampleDeck& deck, const std::vector<const Value*>& values, Random& random)
{
    std::map<std::string, std::vector<const Value*>> byName;
    for (const Value* value : values)
        byName[deck.GetDeck()[value->keyword].GetName()].push_back(value);
    if (byName.empty())
        return nullptr;
    return random.Choose(
        std::next(byName.begin(), static_cast<std::ptrdiff_t>(random.Below(byName.size())))->second);
}

const Value* FindSibling(const SampleDeck& deck, const Value& value, const std::string& item)
{
    const auto& values = deck.GetValues();
    const std::size_t depth = value.path.size() - (value.list && value.path.size() > 2 ? 1 : 0);
    const auto found = std::find_if(values.begin(), values.end(), [&](const Value& other) {
        return other.keyword == value.keyword && other.item == item && other.path.size() == depth
            && std::equal(other.path.begin(), other.path.end() - 1, value.path.begin());
    });
    return found == values.end() ? nullptr : &*found;
}

std::string TextOf(const Value* value)
{
    return value ? value->text : "";
}

const Value* FindInRow(const SampleDeck& deck, const Value& value, std::ptrdiff_t step)
{
    ValuePath path = value.path;
    path[path.size() - 2] += static_cast<std::size_t>(step);
    const auto& values = deck.GetValues();
    const auto found = std::find_if(values.begin(), values.end(),
        [&](const Value& other) { return other.keyword == value.keyword && other.path == path; });
    return found == values.end() ? nullptr : &*found;
}

std::string Misspelt(const std::string& word, Random& random)
{
    const std::size_t at = random.Below(word.size());
    std::string other = word;
    switch (random.Below(4)) {
    case 0:
        if (at + 1 < word.size())
            std::swap(other[at], other[at + 1]);
        break;
    case 1:
        if (word.size() > 2)
            other.erase(at, 1);
        break;
    case 2:
        other.insert(at, 1, word[at]);
        break;
    default:
        other[at] = static_cast<char>('A' + random.Below(26));
    }
    return other == word ? word + "X" : other;
}

std::string MisspeltName(const SampleDeck& deck, const std::string& word, Random& random)
{
    const auto isKnown = [&](const std::string& name) {
        return KeywordSyntaxTable::Instance().Lookup(name, true)
            || std::any_of(deck.GetValues().begin(), deck.GetValues().end(),
                [&](const Value& value) { return value.text == name; });
    };
    std::string name = Misspelt(word, random);
    while (isKnown(name) || std::isdigit(static_cast<unsigned char>(name.front()))
        || name.size() > std::max<std::size_t>(word.size(), word.size() > 3 ? 8 : 3))
        name = Misspelt(word, random);
    return name;
}

std::vector<TextRange> RangesOf(const SampleDeck& deck, const std::string& keywords)
{
    std::vector<TextRange> ranges;
    std::istringstream names(keywords);
    for (std::string name; names >> name;) {
        for (const DeckKeyword keyword : deck.GetDeck().GetAll(name))
            ranges.push_back(keyword.GetRange().length > 0 ? keyword.GetRange() : keyword.GetNameRange());
    }
    return ranges;
}

void Append(std::vector<TextRange> more, std::vector<TextRange>& ranges)
{
    ranges.insert(ranges.end(), more.begin(), more.end());
}

} // namespace Veld::Quor::Trust
