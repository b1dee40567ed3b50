#include "quor/deck/ValueAddress.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/edit/AddressAdvice.h"
#include "quor/deck/internal/edit/AddressMatcher.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <unordered_map>

// Where an address leads to.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Makes places of matches. Matches in the order of the deck cost least.
class ValueMaker {
public:
    explicit ValueMaker(const Deck& deck)
        : deck_(deck)
        , contents_(ContentsOf(deck))
    {
    }

    DeckValue Make(const ValueMatch& match, ValueAddress address)
    {
        const KeywordInstance& keyword = contents_.keywords[match.keyword];
        const ScalarSlot scalar = *FindScalar(*keyword.data, match.path);
        return {deck_[match.keyword], match.path, std::move(address), ToText(*scalar.md, scalar.GetValue()),
            FindRange(match)};
    }

private:
    std::optional<TextRange> FindRange(const ValueMatch& match)
    {
        if (match.keyword != last_) {
            last_ = match.keyword;
            ranges_ = FindValueRanges(deck_, deck_[last_]);
        }
        if (!ranges_)
            return std::nullopt;
        return (*ranges_)[SlotOf(*contents_.keywords[last_].data, match.path)];
    }

    const Deck& deck_;
    const DeckContents& contents_;
    std::uint32_t last_ = noIndex; // keyword
    const std::vector<TextRange>* ranges_ = nullptr; // of it
};

/// Only the one that the number of the address says.
void TakeNumber(const ValueAddress& address, std::vector<ValueMatch>& matches)
{
    if (address.number == 0)
        return;
    if (address.number > matches.size())
        matches.clear();
    else
        matches = {matches[address.number - 1]};
}

/// Past the end if the node has no such item.
std::size_t IndexOf(const IKeywordData& node, ItemKey item)
{
    if (!item.IsName())
        return static_cast<std::size_t>(item.Index());
    std::size_t index = 0;
    while (index < CountChildren(node) && FindChildMD(node, index)->GetName() != item.Name())
        ++index;
    return index;
}

bool IsSame(const ValueMatch& a, const ValueMatch& b)
{
    return a.keyword == b.keyword && a.path == b.path;
}

/// With its number if several have the address.
ValueAddress FullAddress(const DeckContents& deck, const ValueMatch& match)
{
    ValueAddress address = MakeAddress(deck, match);
    const auto matches = FindMatches(deck, address);
    if (matches.size() > 1) {
        const auto at = std::find_if(
            matches.begin(), matches.end(), [&](const ValueMatch& other) { return IsSame(match, other); });
        address.number = static_cast<std::size_t>(at - matches.begin()) + 1;
    }
    return address;
}

/// The full addresses of all values that one address matches. An address without a date matches those that
/// have one too, so these count among the ones without.
std::vector<ValueAddress> FullAddresses(const DeckContents& deck, const std::vector<ValueMatch>& matches)
{
    std::unordered_map<std::string, std::size_t> counts;
    std::vector<ValueAddress> addresses;
    std::vector<std::string> keys;
    for (const ValueMatch& match : matches) {
        const std::string& date = addresses.emplace_back(MakeAddress(deck, match)).date;
        std::string key = MakeAddressKey(deck, match);
        ++counts[key];
        if (!date.empty())
            ++counts[key.append("@").append(date)];
        keys.push_back(std::move(key));
    }
    std::unordered_map<std::string, std::size_t> numbers;
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const std::string& date = addresses[i].date;
        const std::size_t number = ++numbers[keys[i]];
        if (!date.empty())
            ++numbers[keys[i].substr(0, keys[i].size() - date.size() - 1)];
        if (counts[keys[i]] > 1)
            addresses[i].number = number;
    }
    return addresses;
}

} // namespace

std::vector<DeckValue> Resolve(const Deck& deck, const ValueAddress& address)
{
    const DeckContents& contents = ContentsOf(deck);
    auto matches = FindMatches(contents, address);
    auto addresses = FullAddresses(contents, matches);
    if (address.number > 0 && address.number <= matches.size())
        addresses = {addresses[address.number - 1]};
    TakeNumber(address, matches);
    ValueMaker maker(deck);
    std::vector<DeckValue> values;
    values.reserve(matches.size());
    for (std::size_t i = 0; i < matches.size(); ++i)
        values.push_back(maker.Make(matches[i], std::move(addresses[i])));
    return values;
}

DeckValue ResolveOne(const Deck& deck, const ValueAddress& address)
{
    const DeckContents& contents = ContentsOf(deck);
    auto matches = FindMatches(contents, address);
    if (matches.empty())
        throw AddressError(Printable(ExplainNoMatch(contents, address)));
    const bool isOne = address.number == 0 ? matches.size() == 1 : address.number <= matches.size();
    if (!isOne)
        throw AddressError(Printable(ExplainMatches(contents, address, matches)));
    TakeNumber(address, matches);
    return ValueMaker(deck).Make(matches.front(), FullAddress(contents, matches.front()));
}

DeckValue ResolvePath(const Deck& deck, const DeckKeyword& keyword, const ValuePath& path)
{
    CheckIsOf(deck, keyword);
    if (!keyword.FindData() || !FindScalar(*keyword.FindData(), path))
        throw AddressError(
            fmt::format("{} has no value at the path {{{}}}", keyword.GetName(), fmt::join(path, ", ")));
    const ValueMatch match{static_cast<std::uint32_t>(keyword.GetIndex()), path};
    return ValueMaker(deck).Make(match, FullAddress(ContentsOf(deck), match));
}

const std::vector<TextRange>* FindValueRanges(const Deck& deck, const DeckKeyword& keyword)
{
    CheckIsOf(deck, keyword);
    const KeywordInstance& instance = ContentsOf(deck).keywords[keyword.GetIndex()];
    const bool hasRanges = instance.data && instance.notes && !instance.notes->values.empty()
        && instance.notes->values.size() == CountSlots(*instance.data);
    return hasRanges ? &instance.notes->values : nullptr;
}

ValueAddress AddressOf(const Deck& deck, const DeckKeyword& keyword, std::size_t record, ItemKey item)
{
    CheckIsOf(deck, keyword);
    const IKeywordData& root = keyword.GetData();
    const bool isList = root.GetMD()->GetType() == IKeywordDataMD::MDType::List;
    const IKeywordDataMD* const md = isList ? FindChildMD(root, record) : root.GetMD();
    ValuePath path;
    if (md && md->GetType() == IKeywordDataMD::MDType::Record)
        path =
            isList ? ValuePath{record, IndexOf(ChildOf(root, record), item)} : ValuePath{IndexOf(root, item)};
    if (!FindScalar(root, path))
        throw AddressError(Printable(ExplainNoItem(keyword, record, item)));
    return FullAddress(ContentsOf(deck), {static_cast<std::uint32_t>(keyword.GetIndex()), path});
}

} // namespace Veld::Quor::Core::Decks
