#include "tools/quor/syntax/SyntaxDifference.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>

namespace Veld::Quor::Tools {

using Json = nlohmann::ordered_json;

namespace {

/// What a member of a node does to decks if it changes.
enum class Kind {
    Exact, ///< breaks them
    Least, ///< breaks them if it grows
    Most, ///< breaks them if it becomes less
    Freedom, ///< a flag: breaks them if it is taken away
    Duty, ///< a flag or a word: breaks them if it is there now
    Remark, ///< does nothing
};

struct Member {
    const char* name;
    const char* noun; // for people
    Kind kind;
};

constexpr Member members[] = {{"description", "description", Kind::Remark},
    {"termination", "termination", Kind::Exact}, {"stringTermination", "end", Kind::Exact},
    {"endWords", "end words", Kind::Exact}, {"size", "size", Kind::Exact},
    {"minSize", "minimum size", Kind::Least}, {"maxSize", "maximum size", Kind::Most},
    {"min", "minimum", Kind::Least}, {"max", "maximum", Kind::Most},
    {"measurement", "measurement", Kind::Exact}, {"optional", "optional", Kind::Freedom},
    {"itemsDefaultable", "defaultable", Kind::Freedom}, {"skippableOnRead", "skippable", Kind::Freedom},
    {"columnConstraint", "order of the column", Kind::Duty},
    {"fillEmptyElementsWithPreviousValue", "filled from the values before", Kind::Exact},
    {"caseSensitive", "case-sensitive", Kind::Duty}, {"lengthLimit", "limit of the length", Kind::Most},
    {"canContainComma", "open to commas", Kind::Freedom}, {"identifier", "an identifier", Kind::Remark},
    {"format", "format", Kind::Remark}, {"wildcard", "a wildcard", Kind::Exact}};

std::string WordOf(const Json& value)
{
    if (value.is_null())
        return "none";
    if (value.is_number_float())
        return fmt::format("{}", value.get<double>());
    return value.is_string() ? fmt::format("'{}'", value.get<std::string>()) : value.dump();
}

std::string ChangeText(const char* noun, Kind kind, const Json& before, const Json& after)
{
    if (before.is_boolean() && after.is_boolean())
        return fmt::format("{} {}", after == true ? "now" : "no longer", noun);
    if (kind == Kind::Remark)
        return fmt::format("other {}", noun);
    return fmt::format("{} {} instead of {}", noun, WordOf(after), WordOf(before));
}

/// Whether decks that fitted one value of a member may not fit the other. Null is no limit.
bool Breaks(Kind kind, const Json& a, const Json& b)
{
    switch (kind) {
    case Kind::Exact:
        return true;
    case Kind::Least:
        return !b.is_null() && (!a.is_number() || !b.is_number() || a.get<double>() < b.get<double>());
    case Kind::Most:
        return !b.is_null() && (!a.is_number() || !b.is_number() || a.get<double>() > b.get<double>());
    case Kind::Freedom:
        return b != true;
    case Kind::Duty:
        return !b.is_null() && b != false;
    case Kind::Remark:
        break;
    }
    return false;
}

/// Compares the data of one keyword.
class DataComparison {
public:
    DataComparison(const std::string& keyword, SyntaxChanges& changes)
        : keyword_(keyword)
        , changes_(changes)
    {
    }

    void Compare(const std::string& item, const Json& a, const Json& b);

private:
    void CompareDefaults(const std::string& item, const Json& a, const Json& b);
    void CompareChoices(const std::string& item, const Json& a, const Json& b);
    void CompareItems(const std::string& way, const Json& a, const Json& b);
    void ReportMissing(const std::string& item, const Json& a, const Json& b, std::size_t index);
    void ReportNew(const std::string& item, const Json& a, const Json& b, std::size_t index);
    void Add(const std::string& item, std::string text, bool breaks)
    {
        changes_.push_back({keyword_, item, std::move(text), breaks});
    }

    const std::string& keyword_;
    SyntaxChanges& changes_;
};

std::string NameOf(const Json& item)
{
    if (item.contains("keys"))
        return item["keys"].empty() ? "" : item["keys"][0].get<std::string>();
    return item.value("name", "");
}

std::size_t IndexOf(const Json& items, const std::string& name)
{
    return static_cast<std::size_t>(std::find_if(items.begin(), items.end(), [&name](const Json& item) {
        return NameOf(item) == name;
    }) - items.begin());
}

/// Which of those it is that the other list has too: items that are new don't move others.
std::size_t RankOf(const Json& items, const Json& others, std::size_t index)
{
    std::size_t rank = 0;
    for (std::size_t i = 0; i < index; ++i)
        rank += IndexOf(others, NameOf(items[i])) < others.size() ? 1U : 0U;
    return rank;
}

std::string WayTo(const std::string& way, const std::string& name)
{
    return way.empty() ? name : way + '.' + name;
}

void DataComparison::Compare(const std::string& item, const Json& a, const Json& b)
{
    if (a.is_null() || b.is_null()) {
        if (a != b)
            Add(item, a.is_null() ? "data, and had none" : "no data, and had some", true);
        return;
    }
    if (a["type"] != b["type"])
        return Add(item, fmt::format("type {} instead of {}", WordOf(b["type"]), WordOf(a["type"])),
            !(a["type"] == "integer" && b["type"] == "real"));
    for (const auto& [name, noun, kind] : members) {
        const Json before = a.value(name, Json());
        const Json after = b.value(name, Json());
        if (before == after)
            continue;
        Add(item, ChangeText(noun, kind, before, after), Breaks(kind, before, after));
    }
    for (const char* const name : {"validity", "unsupportedBy", "validSimulators"})
        CompareValidity({keyword_, item, "", false}, a.value(name, Json()), b.value(name, Json()),
            name == std::string_view("unsupportedBy"), changes_);
    CompareDefaults(item, a.value("default", Json()), b.value("default", Json()));
    CompareChoices(item, a.value("choices", Json::array()), b.value("choices", Json::array()));
    for (const char* const list : {"items", "assignments"}) {
        if (a.contains(list))
            CompareItems(item, a[list], b[list]);
    }
    if (a.contains("item"))
        Compare(item, a["item"], b["item"]);
}

std::string DefaultText(const Json& value)
{
    return value["type"] == "specified" ? WordOf(value["value"]) : value["type"].get<std::string>();
}

/// Of the keyword, else of the first simulator that differs.
void DataComparison::CompareDefaults(const std::string& item, const Json& a, const Json& b)
{
    for (const auto& [simulator, before] : a.items()) {
        const Json after = b.value(simulator, b["Any"]);
        if (before["type"] == after["type"] && before.value("value", Json()) == after.value("value", Json()))
            continue;
        const bool isNew = before["type"] == "no default" && after["type"] != "no default";
        return Add(item,
            fmt::format("default {} instead of {}{}", DefaultText(after), DefaultText(before),
                simulator == "Any" ? "" : " for " + simulator),
            !isNew);
    }
}

void DataComparison::CompareChoices(const std::string& item, const Json& a, const Json& b)
{
    const auto spellings = [](const Json& choices) {
        std::map<std::string, const Json*> words;
        for (const Json& choice : choices) {
            words.emplace(choice["text"], &choice);
            for (const Json& alias : choice["aliases"])
                words.emplace(alias["name"], &choice);
        }
        return words;
    };
    const auto before = spellings(a);
    const auto after = spellings(b);
    for (const auto& [word, choice] : before) {
        const auto same = after.find(word);
        if (same == after.end()) {
            Add(item, fmt::format("choice '{}' removed", word), true);
        } else if (word == (*choice)["text"]) {
            const SyntaxChange about{keyword_, item, fmt::format("choice '{}' ", word), false};
            CompareValidity(about, (*choice)["validity"], (*same->second)["validity"], false, changes_);
            CompareValidity(
                about, (*choice)["unsupportedBy"], (*same->second)["unsupportedBy"], true, changes_);
        }
    }
    for (const auto& [word, choice] : after) {
        if (before.count(word) == 0)
            Add(item, fmt::format("new choice '{}'", word), false);
    }
}

/// By name; the places of assignments don't matter.
void DataComparison::CompareItems(const std::string& way, const Json& a, const Json& b)
{
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::string name = NameOf(a[i]);
        const std::size_t after = IndexOf(b, name);
        if (after == b.size()) {
            ReportMissing(WayTo(way, name), a, b, i);
            continue;
        }
        if (!a[i].contains("keys") && RankOf(a, b, i) != RankOf(b, a, after))
            Add(WayTo(way, name), fmt::format("item {} instead of {}", after + 1, i + 1), true);
        Compare(WayTo(way, name), a[i], b[after]);
    }
    for (std::size_t i = 0; i < b.size(); ++i) {
        if (IndexOf(a, NameOf(b[i])) == a.size())
            ReportNew(WayTo(way, NameOf(b[i])), a, b, i);
    }
}

/// An item of another name in its place is the same to decks.
bool IsRenamed(const Json& a, const Json& b, std::size_t index)
{
    return index < a.size() && index < b.size() && !a[index].contains("keys")
        && a[index]["type"] == b[index]["type"] && IndexOf(b, NameOf(a[index])) == b.size()
        && IndexOf(a, NameOf(b[index])) == a.size();
}

void DataComparison::ReportMissing(const std::string& item, const Json& a, const Json& b, std::size_t index)
{
    if (!IsRenamed(a, b, index))
        return Add(item, "item removed", true);
    Add(item, fmt::format("item renamed to {}", NameOf(b[index])), false);
    Compare(item, a[index], b[index]);
}

void DataComparison::ReportNew(const std::string& item, const Json& a, const Json& b, std::size_t index)
{
    if (IsRenamed(a, b, index))
        return;
    const bool isOptional = b[index].value("optional", false)
        || (b[index].contains("default") && b[index]["default"]["Any"]["type"] != "no default");
    const bool isLast = index >= a.size() || b[index].contains("keys");
    Add(item,
        fmt::format("new item {}{}", index + 1,
            !isLast           ? ", not at the end"
                : !isOptional ? ", without a default"
                              : ""),
        !b[index].contains("keys") && (!isLast || !isOptional));
}

} // namespace

void CompareData(const std::string& keyword, const Json& a, const Json& b, SyntaxChanges& changes)
{
    DataComparison(keyword, changes).Compare("", a, b);
}

} // namespace Veld::Quor::Tools
