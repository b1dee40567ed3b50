#pragma once

#include "quor/deck/internal/physics/PhysicsFacts.h"

#include <array>
#include <cstddef>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Which cells of the grid the deck leaves out. The facts must outlive it.
class ActiveCells {
public:
    explicit ActiveCells(const PhysicsFacts& facts);

    /// Whether nothing can change what the deck says.
    bool IsKnown() const { return isKnown_; }
    /// Whether the deck leaves any out.
    bool IsGiven() const { return numbers_ != nullptr; }
    const std::array<std::size_t, 3>& GetSizes() const { return sizes_; }
    std::size_t GetCount() const { return sizes_[0] * sizes_[1] * sizes_[2]; }
    /// By indices from 0, within the grid.
    bool IsActive(std::size_t i, std::size_t j, std::size_t k) const
    {
        return IsActive((k * sizes_[1] + j) * sizes_[0] + i);
    }
    /// By number from 0, in the order of the grid.
    bool IsActive(std::size_t cell) const { return !numbers_ || numbers_[cell] != 0; }
    /// "3 1 2", the indices of a cell from 1.
    std::string NameOf(std::size_t cell) const;

private:
    std::array<std::size_t, 3> sizes_ = {};
    const int* numbers_ = nullptr; // of each cell; null: all are active
    bool isKnown_ = false;
};

} // namespace Veld::Quor::Core::Decks
