#include "quor/deck/internal/edit/AddressMatcher.h"

#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/read/RecordIdentity.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <optional>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

constexpr const char* notGiven = "1*";

bool IsCaseSensitive(const IKeywordDataMD& md)
{
    return md.GetType() == MDType::String && static_cast<const IKeywordStringMD&>(md).IsCaseSensitive();
}

std::string TextOf(const IdentityItem& item)
{
    return IsGiven(item.value) ? ToText(*item.md, item.value) : notGiven;
}

/// Numbers are compared as numbers.
bool Matches(const IdentityItem& item, const std::string& text)
{
    if (const auto* const real = std::get_if<double>(&item.value))
        return ToReal(text) == *real;
    if (std::holds_alternative<int>(item.value) && item.md->GetType() == MDType::Integer)
        return ToInteger(text) == std::get<int>(item.value);
    const std::string own = TextOf(item);
    return own == text || (!IsCaseSensitive(*item.md) && ToUpper(own) == ToUpper(text));
}

bool Matches(const std::vector<IdentityItem>& identity, const std::vector<std::string>& texts)
{
    if (texts.size() > identity.size())
        return false;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!Matches(identity[i], texts[i]))
            return false;
    }
    return true;
}

/// The index of the element that goes by the number.
std::optional<std::size_t> FindIndex(const std::string& number, std::size_t size)
{
    const auto value = ToInteger(number);
    if (!value || *value < 1 || static_cast<std::size_t>(*value) > size)
        return std::nullopt;
    return static_cast<std::size_t>(*value) - 1;
}

/// The exact name before the same one in other letters.
std::optional<std::size_t> FindItem(const IKeywordData& record, const std::string& text)
{
    const std::size_t size = CountChildren(record);
    std::optional<std::size_t> found;
    for (std::size_t i = size; i-- > 0;) {
        const std::string& name = FindChildMD(record, i)->GetName();
        if (name == text)
            return i;
        if (!name.empty() && ToUpper(name) == ToUpper(text))
            found = i;
    }
    return found ? found : FindIndex(text, size);
}

class Matcher {
public:
    Matcher(const DeckContents& deck, const ValueAddress& address)
        : deck_(deck)
        , address_(address)
    {
    }

    std::vector<ValueMatch> Find();

private:
    void AddKeyword(const IKeywordData& root);
    void AddElements(const IKeywordData& list);
    void AddChild(const IKeywordData& node, std::size_t index, std::size_t step);
    void AddBelow(const IKeywordData& node, std::size_t step);

    const DeckContents& deck_;
    const ValueAddress& address_;
    ValueMatch current_{};
    std::vector<ValueMatch> matches_;
};

std::vector<ValueMatch> Matcher::Find()
{
    for (const std::uint32_t index : deck_.names.Find(deck_, address_.keyword)) {
        const KeywordInstance& keyword = deck_.keywords[index];
        current_ = {index, {}};
        if (keyword.data && (address_.date.empty() || DateOf(deck_, keyword) == address_.date))
            AddKeyword(*keyword.data);
    }
    return std::move(matches_);
}

void Matcher::AddKeyword(const IKeywordData& root)
{
    const auto& texts = address_.identifiers;
    if (root.GetMD()->GetType() == MDType::List) {
        AddElements(root);
    } else if (root.GetMD()->GetType() == MDType::Record) {
        const auto identity = IdentityOf(root);
        if (Matches(identity, texts) || (identity.empty() && texts == std::vector<std::string>{"1"}))
            AddBelow(root, 0);
    }
}

void Matcher::AddElements(const IKeywordData& list)
{
    const auto& texts = address_.identifiers;
    const std::size_t size = CountChildren(list);
    const bool isNamed = IsListOfNamedRecords(list.GetMD());
    if (!isNamed && texts.size() == 1) {
        if (const auto index = FindIndex(texts.front(), size))
            AddChild(list, *index, 0);
        return;
    }
    if (!isNamed && !texts.empty())
        return;
    for (std::size_t i = 0; i < size; ++i) {
        if (texts.empty() || Matches(IdentityOf(ChildOf(list, i)), texts))
            AddChild(list, i, 0);
    }
}

/// `step`: the item of the address that says what comes below.
void Matcher::AddChild(const IKeywordData& node, std::size_t index, std::size_t step)
{
    current_.path.push_back(index);
    if (!KeywordUtils::IsItemMDType(FindChildMD(node, index)->GetType()))
        AddBelow(ChildOf(node, index), step);
    else if (step >= address_.items.size())
        matches_.push_back(current_);
    current_.path.pop_back();
}

void Matcher::AddBelow(const IKeywordData& node, std::size_t step)
{
    const std::size_t size = CountChildren(node);
    if (step >= address_.items.size()) {
        for (std::size_t i = 0; i < size; ++i)
            AddChild(node, i, step);
        return;
    }
    const std::string& text = address_.items[step];
    const auto index =
        node.GetMD()->GetType() == MDType::Record ? FindItem(node, text) : FindIndex(text, size);
    if (index)
        AddChild(node, *index, step + 1);
}

/// Fills all but the identifiers, which are returned.
std::vector<IdentityItem> Describe(const DeckContents& deck, const ValueMatch& match, ValueAddress& address)
{
    const KeywordInstance& keyword = deck.keywords[match.keyword];
    address.keyword = deck.NameOf(keyword);
    address.date = DateOf(deck, keyword);
    const IKeywordData* node = keyword.data.get();
    const bool isList = node->GetMD()->GetType() == MDType::List;
    std::vector<IdentityItem> identity;
    if (!isList || IsListOfNamedRecords(node->GetMD()))
        identity = IdentityOf(isList ? ChildOf(*node, match.path.front()) : *node);
    else
        address.identifiers.push_back(std::to_string(match.path.front() + 1));
    for (std::size_t i = 0; i < match.path.size(); ++i) {
        const std::size_t index = match.path[i];
        if (i > 0 || !isList)
            address.items.push_back(node->GetMD()->GetType() == MDType::Record ? ItemText(*node, index)
                                                                               : std::to_string(index + 1));
        if (i + 1 < match.path.size())
            node = &ChildOf(*node, index);
    }
    return identity;
}

} // namespace

std::vector<ValueMatch> FindMatches(const DeckContents& deck, const ValueAddress& address)
{
    return Matcher(deck, address).Find();
}

ValueAddress MakeAddress(const DeckContents& deck, const ValueMatch& match)
{
    ValueAddress address;
    for (const IdentityItem& item : Describe(deck, match, address))
        address.identifiers.push_back(TextOf(item));
    return address;
}

std::string MakeAddressKey(const DeckContents& deck, const ValueMatch& match)
{
    ValueAddress address;
    for (const IdentityItem& item : Describe(deck, match, address))
        address.identifiers.push_back(IsCaseSensitive(*item.md) ? TextOf(item) : ToUpper(TextOf(item)));
    return address.ToString();
}

std::string DateOf(const DeckContents& deck, const KeywordInstance& keyword)
{
    if (keyword.step != noIndex)
        return DateText(deck.steps[keyword.step].time);
    return keyword.section == SectionType::SCHEDULE ? DateText(deck.start) : std::string();
}

std::string ItemText(const IKeywordData& record, std::size_t item)
{
    const std::string& name = FindChildMD(record, item)->GetName();
    return !name.empty() && FindItem(record, name) == item ? name : std::to_string(item + 1);
}

} // namespace Veld::Quor::Core::Decks
