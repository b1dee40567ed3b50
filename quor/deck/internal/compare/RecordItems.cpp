#include "quor/deck/internal/compare/RecordItems.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

const IKeywordDataMD& RecordItems::MDOf(int item) const
{
    return *static_cast<const IKeywordRecordMD&>(*record_.GetMD()).GetItemMD(item);
}

ScalarValue RecordItems::ValueOf(int item) const
{
    const IKeywordDataMD& md = MDOf(item);
    ScalarValue value = ItemValue(md, record_.GetData(item));
    return IsGiven(value) ? value : DefaultOf(md, SimulatorType::Any).value;
}

std::string RecordItems::FindName(Role::Enum role) const
{
    return ToUpper(FindWord(role));
}

std::string RecordItems::FindWord(Role::Enum role) const
{
    const int item = roles_.Find(role);
    return item < 0 ? std::string() : ToText(MDOf(item), ValueOf(item));
}

std::string RecordItems::FindOtherWord(Role::Enum role) const
{
    const int item = roles_.Find(role);
    if (item < 0)
        return {};
    const ScalarValue value = ValueOf(item);
    return value == DefaultOf(MDOf(item), SimulatorType::Any).value ? std::string()
                                                                    : ToText(MDOf(item), value);
}

int RecordItems::FindIndex(Role::Enum role) const
{
    const int item = roles_.Find(role);
    const ScalarValue value = item < 0 ? ScalarValue() : ValueOf(item);
    return IsGiven(value) ? std::get<int>(value) : 0;
}

bool RecordItems::HasIndex(Role::Enum role) const
{
    return std::any_of(roles_.items.begin(), roles_.items.end(), [&](const RecordRoles::Item& item) {
        if (item.role != role)
            return false;
        const ScalarValue value = ValueOf(item.item);
        return IsGiven(value) && std::get<int>(value) > 0;
    });
}

std::optional<double> RecordItems::FindNumber(Role::Enum role) const
{
    const int item = roles_.Find(role);
    const ScalarValue value = item < 0 ? ScalarValue() : ValueOf(item);
    return IsGiven(value) ? std::optional(std::get<double>(value)) : std::nullopt;
}

} // namespace Veld::Quor::Core::Decks
