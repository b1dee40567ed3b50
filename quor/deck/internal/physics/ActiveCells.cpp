#include "quor/deck/internal/physics/ActiveCells.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/read/data/DataShape.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

ActiveCells::ActiveCells(const PhysicsFacts& facts)
{
    constexpr const char* names[] = {"NX", "NY", "NZ"};
    for (std::size_t i = 0; i < sizes_.size(); ++i)
        sizes_[i] = static_cast<std::size_t>(std::max(facts.FindSize(names[i]).value_or(0), 0LL));
    isKnown_ = facts.IsSure() && facts.AreCellsKnown() && GetCount() > 0;
    const KeywordInstance* const keyword = facts.FindKeyword(PhysicalRole::ActiveCells);
    if (!isKnown_ || !keyword)
        return;
    isKnown_ = IsListOf(keyword->data->GetMD(), IKeywordDataMD::MDType::Integer);
    if (!isKnown_)
        return;
    const auto numbers = As<int>(static_cast<const IKeywordListData&>(*keyword->data));
    isKnown_ = numbers.size() == GetCount();
    numbers_ = isKnown_ ? numbers.data() : nullptr;
}

std::string ActiveCells::NameOf(std::size_t cell) const
{
    return fmt::format(
        "{} {} {}", cell % sizes_[0] + 1, cell / sizes_[0] % sizes_[1] + 1, cell / sizes_[0] / sizes_[1] + 1);
}

} // namespace Veld::Quor::Core::Decks
