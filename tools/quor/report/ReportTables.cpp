#include "tools/quor/report/ReportTables.h"

#include "quor/data/Access.h"
#include "quor/deck/DeckUnits.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using nlohmann::ordered_json;

namespace {

/// A table under construction. A row of records with rows of their own has the numbers of the outer record in
/// each row, and the number of that record as its branch.
struct TableRows {
    ordered_json rows = ordered_json::array();
    ordered_json branches = ordered_json::array();
};

const IKeywordDataMD* ItemOfList(const IKeywordDataMD* md)
{
    return md && md->GetType() == MDType::List ? static_cast<const IKeywordListMD*>(md)->GetItemMD()
                                               : nullptr;
}

const IKeywordRecordMD* FindRecordMD(const IKeywordDataMD* md)
{
    return md && md->GetType() == MDType::Record ? static_cast<const IKeywordRecordMD*>(md) : nullptr;
}

/// The item that is a list of records; -1 if there is none.
int FindRows(const IKeywordRecordMD& record)
{
    for (int i = 0; i < record.GetSize(); ++i) {
        if (FindRecordMD(ItemOfList(record.GetItemMD(i))))
            return i;
    }
    return -1;
}

/// Reals, and the numbers that say what a record is about.
bool IsColumn(const IKeywordRecordMD& record, int item)
{
    const MDType::Enum type = record.GetItemMD(item)->GetType();
    return type == MDType::Real || (type == MDType::Integer && record.IsIdentifier(item));
}

/// Null for a value that is left to its default.
ordered_json NumbersOf(const IKeywordRecordData& record, const ordered_json& before)
{
    ordered_json row = before;
    const auto& md = AsRecord(*record.GetMD());
    const auto add = [&row](
                         const auto& value) { row.push_back(value ? ordered_json(*value) : ordered_json()); };
    for (int i = 0; i < md.GetSize(); ++i) {
        if (!IsColumn(md, i))
            continue;
        if (md.GetItemMD(i)->GetType() == MDType::Real)
            add(Get<double>(record, i));
        else
            add(Get<int>(record, i));
    }
    return row;
}

void AddRows(const IKeywordRecordData& record, std::size_t branch, TableRows& table)
{
    const int rows = FindRows(AsRecord(*record.GetMD()));
    const ordered_json outer = NumbersOf(record, ordered_json::array());
    if (rows < 0) {
        table.rows.push_back(outer);
        table.branches.push_back(0);
        return;
    }
    for (const IKeywordRecordData& inner : Records(ListIn(record, rows))) {
        table.rows.push_back(NumbersOf(inner, outer));
        table.branches.push_back(branch);
    }
}

ordered_json TableOf(const IKeywordListData& list)
{
    TableRows table;
    std::size_t branch = 0;
    for (const IKeywordRecordData& record : Records(list))
        AddRows(record, branch++, table);
    return {{"rows", table.rows}, {"branches", table.branches}};
}

/// The column that the others are plotted against: a saturation or a pressure, else the first; of a table
/// with branches the second.
std::size_t FindX(const ordered_json& columns, bool hasBranches)
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto& role = columns[i]["role"].get_ref<const std::string&>();
        if (role.starts_with("saturation of ") || role == "pressure of fluid" || role == "depth of table")
            return i;
    }
    return hasBranches && columns.size() > 1 ? 1 : 0;
}

/// The items that are lists of values: no columns, since each row may have another number of them.
ordered_json ListsIn(const IKeywordRecordMD& record)
{
    auto names = ordered_json::array();
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD* const item = ItemOfList(record.GetItemMD(i));
        if (item && !FindRecordMD(item))
            names.push_back(record.GetItemMD(i)->GetName());
    }
    return names;
}

class TableWriter {
public:
    TableWriter(const Decks::Deck& deck, const Decks::DeckLanguage& language)
        : units_(Decks::UnitSystemOf(deck))
        , language_(language)
    {
    }

    /// Null for a keyword that carries no tables.
    ordered_json Write(const Decks::DeckKeyword& keyword) const;

private:
    ordered_json ColumnsOf(
        const IKeywordRecordMD& record, const std::vector<Decks::KeywordRole>& roles) const;

    UnitSystem::Enum units_;
    const Decks::DeckLanguage& language_;
};

ordered_json TableWriter::ColumnsOf(
    const IKeywordRecordMD& record, const std::vector<Decks::KeywordRole>& roles) const
{
    auto columns = ordered_json::array();
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD& item = *record.GetItemMD(i);
        if (!IsColumn(record, i))
            continue;
        const std::string* const measurement = item.GetType() == MDType::Real
            ? static_cast<const IKeywordRealMD&>(item).GetMeasurement()
            : nullptr;
        std::string own;
        for (const Decks::KeywordRole& role : roles) {
            if (role.item == item.GetName())
                own = role.role;
        }
        columns.push_back({{"name", item.GetName()}, {"text", item.GetDescription()},
            {"unit", measurement ? UnitText(*measurement, units_) : ""}, {"role", own},
            {"isKey", item.GetType() == MDType::Integer}});
    }
    if (const int rows = FindRows(record); rows >= 0) {
        for (ordered_json& column : ColumnsOf(*FindRecordMD(ItemOfList(record.GetItemMD(rows))), roles))
            columns.push_back(std::move(column));
    }
    return columns;
}

ordered_json TableWriter::Write(const Decks::DeckKeyword& keyword) const
{
    const IKeywordDataMD* const md = keyword.GetSyntax().GetDataMD();
    const IKeywordDataMD* const item = ItemOfList(md);
    const IKeywordRecordMD* const ofRegion = FindRecordMD(item); // a row for each region
    const IKeywordRecordMD* const record = ofRegion ? ofRegion : FindRecordMD(ItemOfList(item));
    if (!record || !keyword.IsSound())
        return nullptr;
    const auto columns = ColumnsOf(*record, language_.GetRoles(keyword.GetSyntax()));
    auto regions = ordered_json::array();
    const IKeywordListData& list = AsList(keyword.GetData());
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        if (ofRegion) {
            TableRows table;
            AddRows(RecordAt(list, i), 0, table);
            regions.push_back({{"rows", table.rows}, {"branches", table.branches}});
        } else {
            regions.push_back(TableOf(ListAt(list, i)));
        }
    }
    if (columns.empty() || regions.empty())
        return nullptr;
    return {{"keyword", keyword.GetName()}, {"text", keyword.GetSyntax().GetDescription()},
        {"section", SectionType::ToString(keyword.GetSection())}, {"columns", columns},
        {"x", FindX(columns, FindRows(*record) >= 0)}, {"left", ListsIn(*record)}, {"regions", regions}};
}

} // namespace

ordered_json ReportTables(const Decks::Deck& deck, const Decks::DeckLanguage& language)
{
    const TableWriter writer(deck, language);
    auto tables = ordered_json::array();
    for (const SectionType::Enum section : {SectionType::PROPS, SectionType::SOLUTION}) {
        for (const Decks::DeckKeyword& keyword : deck.GetSection(section)) {
            ordered_json table = keyword.FindData() ? writer.Write(keyword) : ordered_json();
            if (!table.is_null())
                tables.push_back(std::move(table));
        }
    }
    return tables;
}

} // namespace Veld::Quor::Tools
