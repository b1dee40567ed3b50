#include "quor/deck/internal/physics/RoleTable.h"

#include "quor/deck/internal/physics/RecordWalk.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cmath>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// What the deck or the language says; NaN if that is no number.
double NumberOf(const IKeywordDataMD& md, const void* data, SimulatorType::Enum simulator)
{
    ScalarValue value = ItemValue(md, data);
    if (!IsGiven(value))
        value = DefaultOf(md, simulator).value;
    if (const int* const whole = std::get_if<int>(&value))
        return *whole;
    const double* const real = std::get_if<double>(&value);
    return real ? *real : std::nan("");
}

/// Fills one table with the rows of its records.
class TableMaker {
public:
    TableMaker(RoleTable& table, SimulatorType::Enum simulator)
        : table_(table)
        , simulator_(simulator)
    {
    }

    void AddRecord(
        const IKeywordRecordData& record, const RecordRoles& roles, std::size_t depth, std::uint32_t slot)
    {
        levels_.resize(depth);
        levels_.push_back({&record, &roles, slot});
        if (roles.inner.empty())
            AddRow();
        else if (table_.branches.empty() || table_.branches.back() != CountRows())
            table_.branches.push_back(CountRows()); // else the one before has no rows
    }

    /// To be called after the last record.
    void End()
    {
        if (!table_.branches.empty() && table_.branches.back() == CountRows())
            table_.branches.pop_back();
    }

private:
    struct Level {
        const IKeywordRecordData* record;
        const RecordRoles* roles;
        std::uint32_t slot; // of its first item
    };

    std::size_t CountRows() const
    {
        return table_.columns.empty() ? 0 : table_.columns.front().values.size();
    }

    void AddRow()
    {
        std::size_t column = 0;
        for (const Level& level : levels_) {
            const auto& md = static_cast<const IKeywordRecordMD&>(*level.record->GetMD());
            for (const RecordRoles::Item& item : level.roles->items) {
                const IKeywordDataMD& itemMD = *md.GetItemMD(item.item);
                if (itemMD.GetType() != MDType::Integer && itemMD.GetType() != MDType::Real)
                    continue;
                if (column == table_.columns.size())
                    table_.columns.push_back({item.role, ItemName(itemMD), {}, {}});
                RoleTable::Column& values = table_.columns[column++];
                values.values.push_back(NumberOf(itemMD, level.record->GetData(item.item), simulator_));
                values.slots.push_back(level.slot + static_cast<std::uint32_t>(item.item));
            }
        }
    }

    RoleTable& table_;
    SimulatorType::Enum simulator_;
    std::vector<Level> levels_; // the records around a row, and its own
};

} // namespace

const RoleTable::Column* RoleTable::Find(Role::Enum role) const
{
    for (const Column& column : columns) {
        if (column.role == role)
            return &column;
    }
    return nullptr;
}

std::vector<RoleTable> MakeTables(
    const DeckContents& deck, std::uint32_t keyword, const RecordRoles& roles, SimulatorType::Enum simulator)
{
    std::vector<RoleTable> tables;
    ForEachElement(*deck.keywords[keyword].data, [&](std::size_t i, const IKeywordData& element) {
        tables.push_back({keyword, i, {}, {}});
        TableMaker maker(tables.back(), simulator);
        const auto add = [&maker](const auto&... record) { maker.AddRecord(record...); };
        RecordWalk(add).Walk(element, roles);
        maker.End();
        if (tables[i].columns.empty() && i > 0)
            tables[i] = tables[i - 1];
    });
    return tables;
}

TextRange RangeOf(
    const DeckContents& deck, const RoleTable& table, const RoleTable::Column& column, std::size_t row)
{
    return FindSlot(deck, deck.keywords[table.keyword], table.element, column.slots[row]);
}

} // namespace Veld::Quor::Core::Decks
