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
    constexpr std::size_t mostCells = std::size_t(1) << 40U; // of more, a number would not fit
    const std::size_t layer = sizes_[0] * sizes_[1]; // sizes are integers of decks
    const bool isCountable = layer > 0 && sizes_[2] > 0 && layer <= mostCells / sizes_[2];
    isKnown_ = facts.IsSure() && facts.AreCellsKnown() && isCountable;
    const KeywordInstance* const keyword = facts.FindKeyword(Role::ActiveCells);
    if (!isKnown_ || !keyword)
        return;
    const auto& list = static_cast<const IKeywordListData&>(*keyword->data);
    isKnown_ = !HasUnknown(list);
    if (!isKnown_)
        return;
    const auto numbers = As<int>(list);
    isKnown_ = numbers.size() == GetCount();
    numbers_ = isKnown_ ? numbers.data() : nullptr;
}

std::string ActiveCells::NameOf(std::size_t cell) const
{
    return fmt::format(
        "{} {} {}", cell % sizes_[0] + 1, cell / sizes_[0] % sizes_[1] + 1, cell / sizes_[0] / sizes_[1] + 1);
}

} // namespace Veld::Quor::Core::Decks
