#include "quor/deck/internal/edit/AddressAdvice.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/read/data/RecordIdentity.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NearestNames.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Texts = std::vector<std::string>;

constexpr std::size_t mostListed = 5;

/// The first of them, and how many more there are.
std::string Listed(const Texts& texts)
{
    if (texts.size() <= mostListed + 1)
        return fmt::format("{}", fmt::join(texts, ", "));
    return fmt::format("{} and {} others", fmt::join(texts.begin(), texts.begin() + mostListed, ", "),
        texts.size() - mostListed);
}

/// Near ones if there are any, else all.
std::string Alternatives(const Texts& known, const std::string& text)
{
    std::string suggestion = SuggestionOf(FindNearest(known, text));
    if (!suggestion.empty())
        return suggestion;
    return known.size() == 1 ? fmt::format("expected {}", known.front())
                             : fmt::format("expected one of {}", Listed(known));
}

/// Different texts in the order of the matches; no empty ones.
template <class Text>
Texts Different(const std::vector<ValueMatch>& matches, const Text& textOf)
{
    Texts texts;
    for (const ValueMatch& match : matches) {
        std::string text = textOf(match);
        const bool isSame = !texts.empty() && texts.back() == text;
        if (!text.empty() && !isSame && std::find(texts.begin(), texts.end(), text) == texts.end())
            texts.push_back(std::move(text));
        if (texts.size() > 1000)
            break;
    }
    return texts;
}

/// In rising order; none of keywords without a date.
Texts DatesOf(const DeckContents& deck, const std::vector<ValueMatch>& matches)
{
    std::set<std::string> dates;
    for (const ValueMatch& match : matches)
        dates.insert(deck.DateOf(deck.keywords[match.keyword]));
    dates.erase(std::string());
    return {dates.begin(), dates.end()};
}

/// Those of the dates, which are in rising order, that are next to another one.
std::string NearestDates(const Texts& dates, const std::string& date)
{
    if (dates.size() <= mostListed + 1)
        return Listed(dates);
    const auto next = std::lower_bound(dates.begin(), dates.end(), date) - dates.begin();
    const auto last = static_cast<std::ptrdiff_t>(dates.size());
    const auto begin = std::clamp<std::ptrdiff_t>(next - 2, 0, last - 4);
    return fmt::format(
        "{} and {} others", fmt::join(dates.begin() + begin, dates.begin() + begin + 4, ", "), last - 4);
}

std::string BracketsOf(const Texts& identifiers)
{
    return ValueAddress{{}, identifiers}.ToString().substr(2); // after the empty name in quotes
}

Texts RecordsOf(const DeckContents& deck, const std::vector<ValueMatch>& matches)
{
    return Different(
        matches, [&](const ValueMatch& match) { return BracketsOf(MakeAddress(deck, match).identifiers); });
}

Texts ItemsOf(const DeckContents& deck, const std::vector<ValueMatch>& matches)
{
    return Different(matches, [&](const ValueMatch& match) {
        const ValueAddress address = MakeAddress(deck, match);
        return fmt::format("{}", fmt::join(address.items, "."));
    });
}

Texts NamesIn(const IKeywordData& record)
{
    Texts names;
    for (std::size_t i = 0; i < CountChildren(record); ++i)
        names.push_back(ItemText(record, i));
    return names;
}

/// Of the record or list at which the items of the address lead nowhere; empty if it isn't a record.
Texts NamesAt(const IKeywordData& root, const ValueMatch& match)
{
    const IKeywordData* node = &root;
    if (node->GetMD()->GetType() == MDType::List && match.path.size() > 1)
        node = &ChildOf(*node, match.path.front());
    return node->GetMD()->GetType() == MDType::Record ? NamesIn(*node) : Texts();
}

/// The first item of the address is one of the record, and those after it lead nowhere.
std::string ExplainBelow(const DeckContents& deck, const ValueAddress& address, const std::string& items)
{
    const std::string& item = address.items.front();
    const auto below = FindMatches(deck, {address.keyword, address.identifiers, {item}});
    const bool isValue = std::all_of(below.begin(), below.end(),
        [&](const ValueMatch& match) { return MakeAddress(deck, match).items.size() == 1; });
    if (isValue)
        return fmt::format(
            "{} has no value '{}'; '{}' is a single value without items", address.keyword, items, item);
    return fmt::format(
        "{} has no value '{}'; '{}' has {}", address.keyword, items, item, Listed(ItemsOf(deck, below)));
}

std::string ExplainItem(
    const DeckContents& deck, const ValueAddress& address, const std::vector<ValueMatch>& matches)
{
    const ValueMatch& match = matches.front();
    const Texts names = NamesAt(*deck.keywords[match.keyword].data, match);
    const std::string items = fmt::format("{}", fmt::join(address.items, "."));
    if (names.empty())
        return fmt::format("{} has no value '{}'", address.keyword, items);
    const bool isKnown = std::any_of(names.begin(), names.end(),
        [&](const std::string& name) { return ToUpper(name) == ToUpper(address.items.front()); });
    if (isKnown && address.items.size() > 1)
        return ExplainBelow(deck, address, items);
    return fmt::format("{} has no item '{}'; {}", address.keyword, address.items.front(),
        Alternatives(names, address.items.front()));
}

/// Why the keyword has no values with an address.
std::string ExplainNoValues(const DeckContents& deck, const ValueAddress& address)
{
    const IKeywordData* const data = deck.keywords[deck.names.Find(deck, address.keyword).back()].data.get();
    if (!data)
        return fmt::format("{} has no data", address.keyword);
    const MDType::Enum type = data->GetMD()->GetType();
    if (type == MDType::Map || type == MDType::Raw)
        return fmt::format("the values of {} have no addresses", address.keyword);
    return fmt::format("{} has no values", address.keyword);
}

/// Whether the elements of the keyword have numbers: how many there are; 0 if they have identifiers, or there
/// is no list.
std::size_t CountNumbered(const DeckContents& deck, const std::vector<ValueMatch>& matches)
{
    const IKeywordDataMD* const md = deck.keywords[matches.front().keyword].data->GetMD();
    if (md->GetType() != MDType::List || IsListOfNamedRecords(md))
        return 0;
    std::size_t count = 0;
    for (const ValueMatch& match : matches)
        count = std::max(count, match.path.front() + 1);
    return count;
}

/// No record has the identifiers, at any date.
std::string ExplainRecord(const DeckContents& deck, const ValueAddress& address)
{
    auto matches = FindMatches(deck, {address.keyword, {}, {}, address.date});
    std::string at = address.date.empty() ? std::string() : " at " + address.date;
    if (matches.empty()) { // at no date
        matches = FindMatches(deck, {address.keyword});
        at.clear();
    }
    if (matches.empty())
        return ExplainNoValues(deck, address);
    const std::string brackets = BracketsOf(address.identifiers);
    const Texts records = RecordsOf(deck, matches);
    if (records.empty())
        return fmt::format("{} is a single record; expected an address without brackets", address.keyword);
    if (const std::size_t count = CountNumbered(deck, matches)) {
        const char* const noun = matches.front().path.size() == 1 ? "value" : "record";
        return fmt::format(
            "{}{} has no {} {} (it has {})", address.keyword, at, noun, brackets, Counted(count, noun));
    }
    return fmt::format(
        "{}{} has no record {}; {}", address.keyword, at, brackets, Alternatives(records, brackets));
}

/// The date is wrong, the rest of the address isn't.
std::string ExplainDate(const DeckContents& deck, const ValueAddress& rest, const std::string& date,
    const std::vector<ValueMatch>& matches)
{
    const Texts dates = DatesOf(deck, matches);
    if (dates.empty())
        return fmt::format("{} has no date; remove '@{}'", rest.ToString(), date);
    const bool isStep = DateText(deck.start) == date
        || std::any_of(deck.steps.begin(), deck.steps.end(),
            [&](const ReportStep& step) { return DateText(step.time) == date; });
    if (!isStep)
        return fmt::format("the deck has no report step at {}; {} is given at {}", date, rest.ToString(),
            NearestDates(dates, date));
    return fmt::format(
        "{} is not given at {}; given at {}", rest.ToString(), date, NearestDates(dates, date));
}

} // namespace

std::string ExplainNoMatch(const DeckContents& deck, const ValueAddress& address)
{
    if (deck.names.Find(deck, address.keyword).empty())
        return address.keyword.empty() ? "the address has no keyword"
                                       : deck.names.ExplainMissing(deck, address.keyword);
    ValueAddress wider{address.keyword, address.identifiers, address.items};
    if (const auto matches = FindMatches(deck, wider); !matches.empty())
        return ExplainDate(deck, wider, address.date, matches);
    wider.items.clear();
    if (const auto matches = FindMatches(deck, wider); !matches.empty())
        return ExplainItem(deck, address, matches);
    return ExplainRecord(deck, address);
}

std::string ExplainNoItem(const DeckKeyword& keyword, std::size_t record, const ItemKey& item)
{
    const std::string name = keyword.GetName();
    const IKeywordData& root = keyword.GetData();
    const bool isList = root.GetMD()->GetType() == MDType::List;
    const std::size_t size = isList ? CountChildren(root) : 1;
    if (record >= size)
        return fmt::format(
            "{}: record index {} is out of range (it has {})", name, record, Counted(size, "record"));
    const IKeywordDataMD& md = isList ? *FindChildMD(root, record) : *root.GetMD();
    if (md.GetType() != MDType::Record)
        return fmt::format("{} has no records with items", name);
    const IKeywordData& data = isList ? ChildOf(root, record) : root;
    const Texts names = NamesIn(data);
    const auto known = std::find(names.begin(), names.end(), item.Name());
    if (item.IsName() && known == names.end())
        return fmt::format(
            "{} has no item '{}'; {}", name, item.Name(), Alternatives(names, std::string(item.Name())));
    const auto index = item.IsName() ? static_cast<std::size_t>(known - names.begin())
                                     : static_cast<std::size_t>(item.Index());
    if (index >= names.size())
        return fmt::format("{}: item index {} is out of range (the record has {})", name, item.Index(),
            Counted(names.size(), "item"));
    return fmt::format("{}: item '{}' is a {}, not a single value", name, names[index],
        MDType::ToString(FindChildMD(data, index)->GetType()));
}

std::string ExplainMatches(
    const DeckContents& deck, const ValueAddress& address, const std::vector<ValueMatch>& matches)
{
    const std::string text = address.ToString();
    if (address.number > 0)
        return fmt::format(
            "{} does not exist: the rest of the address matches {}", text, Counted(matches.size(), "value"));
    const auto advise = [&](const char* what, const std::string& list) {
        return fmt::format("{} matches {} values; add {}: {}", text, matches.size(), what, list);
    };
    if (address.items.empty()) {
        if (const Texts items = ItemsOf(deck, matches); items.size() > 1)
            return advise("an item", Listed(items));
    }
    if (address.date.empty()) {
        if (const Texts dates = DatesOf(deck, matches); dates.size() > 1)
            return advise("a date", Listed(dates));
    }
    if (const Texts records = RecordsOf(deck, matches); records.size() > 1)
        return advise("the record", Listed(records));
    if (const Texts items = ItemsOf(deck, matches); items.size() > 1)
        return advise("an item", Listed(items));
    return advise("a number", fmt::format("#1 to #{}", matches.size()));
}

} // namespace Veld::Quor::Core::Decks
