#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/deck/CellArrays.h"
#include "quor/deck/DeckSummary.h"
#include "quor/deck/internal/compare/RecordItems.h"
#include "quor/deck/internal/physics/RolePlans.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the keywords that work on arrays of cells make of them, cell by cell: they set, copy, add, multiply
/// and limit, in a box or in regions.
class ArrayOperations {
public:
    /// The deck and `plans`, all roles of its language, must outlive it. `withGiven`: also arrays that no
    /// keyword works on.
    ArrayOperations(const DeckContents& deck, RolePlans& plans, bool withGiven = false);

    /// The keywords of the deck, in their order.
    void Follow(const KeywordInstance& keyword);
    /// Those that some keyword works on, in the order in which they are met, without those that are only
    /// given.
    std::vector<ArraySummary> GetArrays() const;
    /// The values of those that have some. To be called once.
    CellArrays TakeValues();

private:
    using Record = RecordItems::Record;
    /// First and last index in each direction, from 1.
    using Box = std::array<long long, 6>;
    struct Array {
        std::vector<double> values; // NaN: not known
        std::vector<std::string> keywords; // that made it
        std::string unknown; // why some values aren't known
        TextRange last; // of the keyword that worked on it last
        std::size_t number = 0;
    };

    void EnterSection(Core::Keywords::SectionType::Enum section);
    static void Forget(Array& array, const std::string& why);
    std::optional<Role::Enum> FindOperation(const Core::Keywords::IKeywordSyntax& syntax) const;
    template <class Visit>
    void ForEachRecord(const KeywordInstance& keyword, Visit visit);
    const std::string& RegionArrayOf(const RecordItems& items) const;
    void Apply(Role::Enum operation, const RecordItems& items, Box& box);
    void Work(
        Role::Enum operation, Array& array, const RecordItems& items, const Box& box, const Array* source);
    void SetValues(const std::string& name, const KeywordInstance& keyword);
    Array& GetArray(const std::string& name);
    Box WholeGrid() const;
    Box BoxOf(const RecordItems& items, const Box& around) const;
    bool IsInLocalGrid(const KeywordInstance& keyword) const;
    /// Calls `visit` with the index of each cell of the box, that of the grid and that within the box.
    template <class Visit>
    void ForEachCell(const Box& box, Visit visit) const;

    const DeckContents& deck_;
    RolePlans& plans_;
    Dimensions dimensions_;
    std::array<std::string, 3> regionArrays_; // of the families M, F and O
    std::map<std::string, Array> arrays_;
    Box box_ = {};
    Core::Keywords::SectionType::Enum section_ = Core::Keywords::SectionType::None;
    bool isGridKnown_ = false;
    std::array<long long, 3> grid_ = {};
    const KeywordInstance* keyword_ = nullptr; // being followed
};

} // namespace Veld::Quor::Core::Decks
