#include "tools/quor/check/CheckStatistics.h"

#include "quor/deck/FindingCodes.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Finding;
using Decks::Severity;
using nlohmann::ordered_json;

namespace {

constexpr const char* noKeyword = "-";

/// The keywords of a deck by where their text is.
class KeywordFinder {
public:
    explicit KeywordFinder(const Decks::Deck& deck)
        : deck_(deck)
    {
        for (const Decks::DeckKeyword keyword : deck) {
            const Decks::TextRange name = keyword.GetNameRange();
            indices_[{name.file, name.offset}] = keyword.GetIndex();
        }
    }

    /// The name of the keyword that the finding is in; of an unknown keyword its word.
    std::string NameOf(const Finding& finding) const
    {
        if (finding.code == InfoOf(Decks::Code::UnknownKeyword).name)
            return ToUpper(std::string(deck_.GetFiles().GetText(finding.range)));
        auto next = indices_.upper_bound({finding.range.file, finding.range.offset});
        if (next == indices_.begin() || std::prev(next)->first.first != finding.range.file)
            return noKeyword;
        const Decks::DeckKeyword keyword = deck_[std::prev(next)->second];
        const Decks::TextRange range = keyword.GetRange();
        const bool isWithin = range.length == 0 || finding.range.offset <= range.offset + range.length;
        return isWithin ? keyword.GetName() : noKeyword;
    }

private:
    const Decks::Deck& deck_;
    std::map<std::pair<std::uint32_t, std::size_t>, std::size_t> indices_; // by file and offset
};

/// The rows of this kind, the most frequent first.
template <class Rows>
std::vector<typename Rows::const_iterator> SortedRows(const Rows& rows, bool byCode, bool byKeyword)
{
    std::vector<typename Rows::const_iterator> sorted;
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        if (row->first.first.empty() != byCode && row->first.second.empty() != byKeyword)
            sorted.push_back(row);
    }
    std::stable_sort(sorted.begin(), sorted.end(),
        [](const auto& a, const auto& b) { return a->second.count > b->second.count; });
    return sorted;
}

} // namespace

ordered_json TallyOf(const Decks::Deck& deck)
{
    const Decks::Findings& findings = deck.GetFindings();
    auto severities = ordered_json::array();
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note})
        severities.push_back(findings.GetCount(severity));
    auto rows = ordered_json::array(); // in the order of the first findings
    std::map<std::pair<std::string, std::string>, std::size_t> indices;
    const KeywordFinder finder(deck);
    for (const Finding& finding : findings) {
        const std::string keyword = finder.NameOf(finding);
        const auto [at, isNew] = indices.emplace(std::pair(finding.code, keyword), rows.size());
        if (isNew)
            rows.push_back({{"code", finding.code}, {"keyword", keyword}, {"count", 0},
                {"file", finding.location.file}, {"line", finding.location.line},
                {"column", finding.location.column}, {"message", finding.message}});
        ordered_json& count = rows[at->second]["count"];
        count = count.get<std::size_t>() + 1;
    }
    return {{"clean", deck.IsClean()}, {"omitted", findings.GetOmittedCount()}, {"counts", severities},
        {"rows", rows}};
}

void CheckStatistics::Add(const ordered_json& tally)
{
    ++decks_;
    clean_ += tally["clean"].get<bool>() ? 1U : 0U;
    omitted_ += tally["omitted"].get<std::size_t>();
    for (std::size_t i = 0; i < std::size(counts_); ++i)
        counts_[i] += tally["counts"][i].get<std::size_t>();
    for (const ordered_json& row : tally["rows"]) {
        const Example example = {
            {row["file"], row["line"].get<std::size_t>(), row["column"].get<std::size_t>()}, row["message"]};
        const auto count = row["count"].get<std::size_t>();
        Count({row["code"], row["keyword"]}, count, example);
        Count({row["code"], ""}, count, example);
        Count({"", row["keyword"]}, count, example);
    }
}

void CheckStatistics::Count(const Key& key, std::size_t count, const Example& example)
{
    Row& row = rows_[key];
    if (row.count == 0)
        row.example = example;
    row.count += count;
    row.decks += std::exchange(row.lastDeck, decks_) == decks_ ? 0U : 1U;
}

std::string CheckStatistics::TableText(const char* heading, bool byCode, bool byKeyword) const
{
    Columns table({"findings", "decks", byCode ? "code" : "", byKeyword ? "keyword" : "", "first at"});
    const auto sorted = SortedRows(rows_, byCode, byKeyword);
    for (const auto& row : sorted)
        table.Add({fmt::format("{}", row->second.count), fmt::format("{}", row->second.decks),
            row->first.first, MakePrintable(row->first.second), LocationText(row->second.example.location)});
    std::string text = fmt::format("{}\n{}", heading, table.GetHead(2));
    for (std::size_t i = 0; i < sorted.size(); ++i)
        text += table.GetRow(i, 2, std::numeric_limits<std::size_t>::max());
    return sorted.empty() ? "" : text + "\n";
}

std::string CheckStatistics::ToText() const
{
    const auto count = [this](Severity severity) { return counts_[static_cast<std::size_t>(severity)]; };
    std::string text = TableText("by code and keyword", true, true) + TableText("by code", true, false)
        + TableText("by keyword", false, true);
    text += fmt::format("{}, {} clean: {}, {}, {}", Plural(decks_, "deck"), clean_,
        Plural(count(Severity::Error), "error"), Plural(count(Severity::Warning), "warning"),
        Plural(count(Severity::Note), "note"));
    return text + (omitted_ > 0 ? fmt::format("; {} not in the tables\n", omitted_) : "\n");
}

ordered_json CheckStatistics::TableJson(bool byCode, bool byKeyword) const
{
    auto json = ordered_json::array();
    for (const auto& row : SortedRows(rows_, byCode, byKeyword)) {
        ordered_json entry = ordered_json::object();
        if (byCode)
            entry["code"] = row->first.first;
        if (byKeyword)
            entry["keyword"] = row->first.second;
        const Example& example = row->second.example;
        entry.update({{"findings", row->second.count}, {"decks", row->second.decks},
            {"example",
                {{"file", example.location.file}, {"line", example.location.line},
                    {"column", example.location.column}, {"message", example.message}}}});
        json.push_back(std::move(entry));
    }
    return json;
}

ordered_json CheckStatistics::ToJson() const
{
    return WithVersion({{"decks", decks_}, {"clean", clean_},
        {"counts",
            {{"errors", counts_[0]}, {"warnings", counts_[1]}, {"notes", counts_[2]}, {"omitted", omitted_}}},
        {"byCodeAndKeyword", TableJson(true, true)}, {"byCode", TableJson(true, false)},
        {"byKeyword", TableJson(false, true)}});
}

} // namespace Veld::Quor::Tools
