#pragma once

#include "quor/deck/internal/physics/ActiveCells.h"
#include "quor/deck/internal/physics/PhysicsFacts.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace Veld::Quor::Core::Decks {

/// Reports connections of wells to cells that are not active, and depths of wells that are far from those of
/// the reservoir.
class Wells {
public:
    /// What the deck says of cells and depths is known now.
    explicit Wells(const PhysicsFacts& facts)
        : facts_(facts)
        , active_(facts)
    {
    }

    /// A keyword that defines wells.
    void FollowHeads(const KeywordInstance& keyword, const RecordRoles& roles);
    void FollowConnections(const KeywordInstance& keyword, const RecordRoles& roles);

private:
    using Record = Keywords::IKeywordRecordData;
    /// Of cells in one column: I, J, first and last K, from 1; 0: not given.
    using Cells = std::array<std::size_t, 4>;
    struct Head {
        std::size_t i;
        std::size_t j;
        TextRange range; // of i
        std::uint32_t keyword; // of the deck's
    };

    bool AreCellsGiven() const { return active_.IsKnown() && active_.IsGiven(); }
    bool IsInactive(const Cells& cells) const;
    void CheckDepth(const KeywordInstance& keyword, std::size_t record, int item, double depth) const;
    void ReportHead(const KeywordInstance& keyword, const std::string& well, const Cells& cells);
    void ReportCells(const KeywordInstance& keyword, const ValuePosition& position, const Cells& cells) const;

    const PhysicsFacts& facts_;
    ActiveCells active_;
    std::unordered_map<std::string, Head> heads_; // by name, in upper case
};

} // namespace Veld::Quor::Core::Decks
