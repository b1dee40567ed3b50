#include "tools/quor/report/LiftTables.h"

#include "quor/data/Access.h"
#include "quor/deck/DeckUnits.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/report/ListedRecord.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using nlohmann::ordered_json;

namespace {

/// Null where a value is left out or not known.
ordered_json NumbersOf(const IKeywordListData& list)
{
    auto numbers = ordered_json::array();
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        numbers.push_back(list.IsDefaulted(i) || IsUnknown(list, i) ? ordered_json()
                                                                    : ordered_json(ValueAt<double>(list, i)));
    return numbers;
}

class LiftWriter {
public:
    LiftWriter(const IKeywordRecordData& record, UnitSystem::Enum units, ordered_json& table)
        : record_(record)
        , units_(units)
        , table_(table)
    {
        ReadHead();
    }

    void AddAxis(const std::string& item)
    {
        if (!IsList(item, MDType::Real))
            return;
        const auto& list = ListIn(record_, item);
        table_["axes"].push_back({{"name", item}, {"word", words_[item]},
            {"unit", UnitOf(AsList(*list.GetMD()))}, {"nodes", NumbersOf(list)}});
    }
    /// A record for each combination of nodes: their numbers, and a list of values.
    void AddValues(const std::string& item);

private:
    /// A document may give any item any role.
    bool IsList(const std::string& item, MDType::Enum of) const
    {
        const auto& md = AsRecord(*record_.GetMD());
        const int number = FindItem(md, item, MDType::List);
        return number >= 0 && AsList(*md.GetItemMD(number)).GetItemMD()->GetType() == of;
    }
    void ReadHead();
    void ReadHeadItem(const IKeywordRecordData& head, int item);
    std::pair<std::string, std::string> MeasurementOf(const IKeywordListMD& list) const;
    std::string UnitOf(const IKeywordListMD& list) const;

    const IKeywordRecordData& record_;
    UnitSystem::Enum units_;
    ordered_json& table_;
    std::map<std::string, std::string> words_; // of the head, by item
};

/// What the numbers of a list measure, and the word of the head that chooses it. Of a measurement that is one
/// of two, as `pressure_or_temperature`, it is the second if a word of the head is its beginning, as TEMP,
/// else the first, and there is no word.
std::pair<std::string, std::string> LiftWriter::MeasurementOf(const IKeywordListMD& list) const
{
    if (list.GetItemMD()->GetType() != MDType::Real)
        return {};
    const std::string* const measurement =
        static_cast<const IKeywordRealMD&>(*list.GetItemMD()).GetMeasurement();
    if (!measurement)
        return {};
    constexpr std::string_view between = "_or_";
    const std::size_t first = std::min(measurement->find(between), measurement->size());
    const std::string second = measurement->substr(std::min(first + between.size(), measurement->size()));
    const auto chosen = std::find_if(words_.begin(), words_.end(), [&second](const auto& word) {
        return !word.second.empty() && ToUpper(second).starts_with(word.second);
    });
    if (chosen == words_.end())
        return {measurement->substr(0, first), ""};
    return {second, chosen->second};
}

std::string LiftWriter::UnitOf(const IKeywordListMD& list) const
{
    const std::string measurement = MeasurementOf(list).first;
    return measurement.empty() ? std::string() : UnitText(measurement, units_);
}

void LiftWriter::AddValues(const std::string& item)
{
    if (!IsList(item, MDType::Record))
        return;
    table_["values"] = item;
    for (const IKeywordRecordData& row : Records(ListIn(record_, item))) {
        const auto& md = AsRecord(*row.GetMD());
        ordered_json json = {{"nodes", ordered_json::array()}};
        for (int i = 0; i < md.GetSize(); ++i) {
            if (md.GetItemMD(i)->GetType() == MDType::Integer)
                json["nodes"].push_back(Get<int>(row, i).ValueOr(0));
            if (md.GetItemMD(i)->GetType() != MDType::List
                || AsList(*md.GetItemMD(i)).GetItemMD()->GetType() != MDType::Real)
                continue;
            json["values"] = NumbersOf(ListIn(row, i));
            const IKeywordListMD& values = AsList(*md.GetItemMD(i));
            table_["unit"] = UnitOf(values);
            if (const std::string word = MeasurementOf(values).second; !word.empty())
                table_["values"] = word;
        }
        table_["rows"].push_back(std::move(json));
    }
}

/// The number of the table, and the words that say what an axis and the values are: in the records before the
/// axes.
void LiftWriter::ReadHead()
{
    const auto& md = AsRecord(*record_.GetMD());
    for (int i = 0; i < md.GetSize(); ++i) {
        if (md.GetItemMD(i)->GetType() != MDType::Record)
            continue;
        const IKeywordRecordData& head = RecordIn(record_, i);
        for (int j = 0; j < AsRecord(*head.GetMD()).GetSize(); ++j)
            ReadHeadItem(head, j);
    }
}

void LiftWriter::ReadHeadItem(const IKeywordRecordData& head, int item)
{
    const IKeywordRecordMD& record = AsRecord(*head.GetMD());
    const IKeywordDataMD& md = *record.GetItemMD(item);
    if (md.GetType() == MDType::Integer && record.IsIdentifier(item))
        table_["number"] = Get<int>(head, item).ValueOr(0);
    if (md.GetType() == MDType::Choice)
        words_[md.GetName()] = GetChoiceOrDefault(head, item, SimulatorType::Any).ValueOr("");
}

/// Null for a keyword that is no lift table.
ordered_json LiftTableOf(
    const Decks::DeckKeyword& keyword, const Decks::DeckLanguage& language, UnitSystem::Enum units)
{
    const IKeywordDataMD* const md = keyword.GetSyntax().GetDataMD();
    if (!md || md->GetType() != MDType::Record)
        return nullptr;
    ordered_json table = {{"keyword", keyword.GetName()}, {"number", 0},
        {"step", Decks::DateText(keyword.GetTime())}, {"axes", ordered_json::array()}, {"values", ""},
        {"unit", ""}, {"rows", ordered_json::array()}};
    LiftWriter writer(AsRecord(keyword.GetData()), units, table);
    for (const Decks::KeywordRole& role : language.GetRoles(keyword.GetSyntax())) {
        if (role.role == "axis of lift table")
            writer.AddAxis(role.item);
        else if (role.role == "values of lift table")
            writer.AddValues(role.item);
    }
    return table["rows"].empty() || table["axes"].size() < 2 ? ordered_json() : table;
}

} // namespace

ordered_json LiftTables(const Decks::Deck& deck, const Decks::DeckLanguage& language)
{
    std::map<std::pair<std::string, int>, ordered_json> tables;
    for (const Decks::DeckKeyword& keyword : deck.GetSection(SectionType::SCHEDULE)) {
        if (!keyword.FindData() || !keyword.IsSound())
            continue;
        ordered_json table = LiftTableOf(keyword, language, Decks::UnitSystemOf(deck));
        if (table.is_null())
            continue;
        const int number = table["number"].get<int>();
        tables[{keyword.GetName(), number}] = std::move(table);
    }
    auto list = ordered_json::array();
    for (auto& [name, table] : tables)
        list.push_back(std::move(table));
    return list;
}

} // namespace Veld::Quor::Tools
