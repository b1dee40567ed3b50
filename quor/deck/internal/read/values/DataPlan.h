#pragma once

#include "quor/deck/internal/check/KeywordValidity.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordListMD;
}

namespace Veld::Quor::Core::Decks {

/// What a reader needs to know of one node of metadata for one target, so that it needn't ask for each value.
struct DataPlan {
    using MDType = Core::Keywords::IKeywordDataMD::MDType;
    using Termination = Core::Keywords::IKeywordDataMD::TerminationType;
    using Constraint = Core::Keywords::IKeywordDataMD::ColumnConstraintType;

    MDType::Enum type = MDType::None;
    const Core::Keywords::IKeywordDataMD* md = nullptr;

    // Scalars
    bool hasDefault = false; ///< specified or calculated, for the target
    double min = -std::numeric_limits<double>::infinity();
    double max = std::numeric_limits<double>::infinity();
    int longest = 0; ///< of a string, in characters
    bool takesComma = false;
    /// A word of a choice of which nothing is to be said.
    struct PlainChoice {
        std::string word;
        int index;
        bool isBare; ///< of letters and digits, and so a word without quotes
    };
    std::vector<PlainChoice> choices; ///< for the target

    // Items of a record
    bool isOptional = false;
    bool isIdentifier = false;
    bool isValid = true; ///< for the target
    bool isUnsupported = false; ///< by the target
    Constraint::Enum constraint = Constraint::None;

    // Records, lists and maps
    Termination::Enum termination = Termination::NONE;
    std::vector<DataPlan> items; ///< of a record; the one of a list
    std::size_t slots = 0; ///< scalars that always exist: the scalar itself, those of a record at any depth
    bool hasConstraints = false; ///< some item of the record has one
    bool isPlain = false; ///< of a record: scalars without an order, up to a slash
    std::size_t required = 0; ///< how many items of the record must be before its slash

    bool IsScalar() const { return Core::Keywords::KeywordUtils::IsItemMDType(type); }
    /// Whether a deck may leave the scalar out.
    bool MayBeMissing() const { return isOptional || hasDefault; }
    /// Whether a deck may leave out the items of the record from `index` on.
    bool MayEndAt(std::size_t index) const;
};

/// Makes plans, and keeps them.
class DataPlans {
public:
    explicit DataPlans(const Target& target)
        : target_(target)
    {
    }

    /// The plan of the root of a keyword's metadata. Lasts as long as this object. `isOfCells`: a whole
    /// number of an array may be 0 too, which is what decks give cells that aren't active.
    const DataPlan& Get(const Core::Keywords::IKeywordDataMD& root, bool isOfCells = false);

private:
    Target target_;
    std::unordered_map<const Core::Keywords::IKeywordDataMD*, std::unique_ptr<DataPlan>> plans_;
};

const Core::Keywords::IKeywordListMD& ListMD(const DataPlan& list);
/// The item as messages name it: by its name, or by its number.
std::string NameOf(const DataPlan& item);

} // namespace Veld::Quor::Core::Decks
