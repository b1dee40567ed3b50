#include "quor/deck/internal/edit/AddressAdvice.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/edit/DataPath.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

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

/// Similar ones if there are any, else all.
std::string Alternatives(const Texts& known, const std::string& text)
{
    const Texts nearest = FindNearest(known, text);
    if (!nearest.empty())
        return fmt::format("similar: {}", fmt::join(nearest, ", "));
    return fmt::format("expected one of {}", Listed(known));
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

Texts DatesOf(const DeckContents& deck, const std::vector<ValueMatch>& matches)
{
    return Different(
        matches, [&](const ValueMatch& match) { return deck.DateOf(deck.keywords[match.keyword]); });
}

std::string BracketsOf(const Texts& identifiers)
{
    return ValueAddress{{}, identifiers}.ToString().substr(2); // behind the empty name in quotes
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

/// Of the record or list at which the items of the address lead nowhere; empty if it isn't a record.
Texts NamesIn(const IKeywordData& root, const ValueMatch& match)
{
    Texts names;
    const IKeywordData* node = &root;
    if (node->GetMD()->GetType() == IKeywordDataMD::MDType::List && match.path.size() > 1)
        node = &ChildOf(*node, match.path.front());
    if (node->GetMD()->GetType() != IKeywordDataMD::MDType::Record)
        return names;
    for (std::size_t i = 0; i < CountChildren(*node); ++i)
        names.push_back(ItemText(*node, i));
    return names;
}

std::string ExplainKeyword(const DeckContents& deck, const ValueAddress& address)
{
    const Texts nearest = deck.names.FindNearest(deck, address.keyword);
    return fmt::format("the deck has no keyword '{}'{}", address.keyword,
        nearest.empty() ? std::string() : fmt::format("; similar: {}", fmt::join(nearest, ", ")));
}

std::string ExplainItem(
    const DeckContents& deck, const ValueAddress& address, const std::vector<ValueMatch>& matches)
{
    const ValueMatch& match = matches.front();
    const Texts names = NamesIn(*deck.keywords[match.keyword].data, match);
    const std::string items = fmt::format("{}", fmt::join(address.items, "."));
    if (names.empty())
        return fmt::format("{} has no value '{}'", address.keyword, items);
    const bool isKnown = std::find(names.begin(), names.end(), address.items.front()) != names.end();
    if (isKnown && address.items.size() > 1)
        return fmt::format("{} has no value '{}'; '{}' has {}", address.keyword, items, address.items.front(),
            Listed(ItemsOf(
                deck, FindMatches(deck, {address.keyword, address.identifiers, {address.items.front()}}))));
    return fmt::format("{} has no item '{}'; {}", address.keyword, address.items.front(),
        Alternatives(names, address.items.front()));
}

/// No record has the identifiers, at any date.
std::string ExplainRecord(const DeckContents& deck, const ValueAddress& address)
{
    const auto matches = FindMatches(deck, {address.keyword, {}, {}, address.date});
    if (matches.empty())
        return fmt::format("{} has no values that have an address", address.keyword);
    const std::string brackets = BracketsOf(address.identifiers);
    const std::string at = address.date.empty() ? std::string() : " at " + address.date;
    const Texts records = RecordsOf(deck, matches);
    if (records.empty())
        return fmt::format("{} is a single record; expected an address without brackets", address.keyword);
    if (matches.front().path.size() == 1)
        return fmt::format(
            "{}{} has no value {} (it has {} values)", address.keyword, at, brackets, matches.size());
    return fmt::format(
        "{}{} has no record {}; {}", address.keyword, at, brackets, Alternatives(records, brackets));
}

} // namespace

std::string ExplainNoMatch(const DeckContents& deck, const ValueAddress& address)
{
    if (deck.names.Find(deck, address.keyword).empty())
        return ExplainKeyword(deck, address);
    ValueAddress wider{address.keyword, address.identifiers, address.items};
    if (const auto matches = FindMatches(deck, wider); !matches.empty()) {
        const Texts dates = DatesOf(deck, matches);
        return fmt::format("{} is not given at {}; {}", wider.ToString(), address.date,
            dates.empty() ? "leave out the date" : "given at " + Listed(dates));
    }
    wider.items.clear();
    if (const auto matches = FindMatches(deck, wider); !matches.empty())
        return ExplainItem(deck, address, matches);
    return ExplainRecord(deck, address);
}

std::string ExplainMatches(
    const DeckContents& deck, const ValueAddress& address, const std::vector<ValueMatch>& matches)
{
    const std::string text = address.ToString();
    if (address.number > 0)
        return fmt::format("{} does not exist: the rest of the address matches {} value{}", text,
            matches.size(), matches.size() == 1 ? "" : "s");
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
