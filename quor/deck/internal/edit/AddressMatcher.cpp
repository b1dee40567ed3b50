#include "quor/deck/internal/edit/AddressMatcher.h"

#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/read/contents/RecordIndex.h"
#include "quor/deck/internal/read/data/RecordIdentity.h"
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

bool IsCaseSensitive(const IKeywordDataMD& md)
{
    return md.GetType() == MDType::String && static_cast<const IKeywordStringMD&>(md).IsCaseSensitive();
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
    void AddAll(std::uint32_t keyword);
    void AddElement(std::uint32_t keyword);
    void AddRecord(const RecordIndex::Row& row);
    void AddChild(const IKeywordData& node, std::size_t index, std::size_t step);
    void AddBelow(const IKeywordData& node, std::size_t step);

    const DeckContents& deck_;
    const ValueAddress& address_;
    ValueMatch current_{};
    std::vector<ValueMatch> matches_;
};

std::vector<ValueMatch> Matcher::Find()
{
    const std::vector<std::uint32_t>& keywords = deck_.names.Find(deck_, address_.keyword);
    if (keywords.empty())
        return {};
    const RecordIndex& index = deck_.recordIndices.Get(deck_, keywords);
    const RecordIndex::Keywords& dated = index.FindKeywords(address_.date);
    if (address_.identifiers.empty()) {
        for (const std::uint32_t keyword : dated.all)
            AddAll(keyword);
        return std::move(matches_);
    }
    for (const std::uint32_t keyword : dated.unnamed)
        AddElement(keyword);
    for (const RecordIndex::Row& row : index.FindRecords(address_.identifiers, address_.date))
        AddRecord(row);
    std::stable_sort(matches_.begin(), matches_.end(),
        [](const ValueMatch& a, const ValueMatch& b) { return a.keyword < b.keyword; });
    return std::move(matches_);
}

void Matcher::AddAll(std::uint32_t keyword)
{
    const IKeywordData& root = *deck_.keywords[keyword].data;
    current_ = {keyword, {}};
    if (root.GetMD()->GetType() == MDType::Record)
        return AddBelow(root, 0);
    for (std::size_t i = 0; i < CountChildren(root); ++i)
        AddChild(root, i, 0);
}

/// By its number in the list.
void Matcher::AddElement(std::uint32_t keyword)
{
    const IKeywordData& list = *deck_.keywords[keyword].data;
    current_ = {keyword, {}};
    if (address_.identifiers.size() > 1)
        return;
    if (const auto index = FindIndex(address_.identifiers.front(), CountChildren(list)))
        AddChild(list, *index, 0);
}

/// If it has the identifiers.
void Matcher::AddRecord(const RecordIndex::Row& row)
{
    const auto& texts = address_.identifiers;
    const IKeywordData& root = *deck_.keywords[row.keyword].data;
    const bool isList = root.GetMD()->GetType() == MDType::List;
    const auto identity = IdentityOf(isList ? ChildOf(root, row.record) : root);
    const bool isOnly = !isList && identity.empty() && texts == std::vector<std::string>{"1"};
    if (!isOnly && !Matches(identity, texts))
        return;
    current_ = {row.keyword, {}};
    isList ? AddChild(root, row.record, 0) : AddBelow(root, 0);
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
    const bool isRecord = node.GetMD()->GetType() == MDType::Record;
    const bool isEnd = step >= address_.items.size();
    if (isEnd || (!isRecord && !ToInteger(address_.items[step]))) { // a row that is left out: all rows
        for (std::size_t i = 0; i < size; ++i)
            AddChild(node, i, step);
        return;
    }
    const std::string& text = address_.items[step];
    if (const auto index = isRecord ? FindItem(node, text) : FindIndex(text, size))
        AddChild(node, *index, step + 1);
}

/// Fills all but the identifiers, which are returned.
std::vector<IdentityItem> Describe(const DeckContents& deck, const ValueMatch& match, ValueAddress& address)
{
    const KeywordInstance& keyword = deck.keywords[match.keyword];
    address.keyword = deck.NameOf(keyword);
    address.date = deck.DateOf(keyword);
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
    address.date.clear();
    return address.ToString();
}

std::string ItemText(const IKeywordData& record, std::size_t item)
{
    const std::string& name = FindChildMD(record, item)->GetName();
    return !name.empty() && FindItem(record, name) == item ? name : std::to_string(item + 1);
}

} // namespace Veld::Quor::Core::Decks
