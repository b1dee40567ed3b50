#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Veld::Quor::Core::Decks {

struct SizeRule;

/// The sizes of a deck by name: the whole numbers of its RUNSPEC section, and their defaults where it gives
/// none, and those that other keywords choose. A scope, such as that of a local grid, may have sizes of its
/// own; so does a box.
class Dimensions {
public:
    Dimensions(const LanguageIndex& language, Core::Keywords::SimulatorType::Enum simulator);

    /// Takes the whole numbers of a record; other data have none. Each is there as "ITEM" and as
    /// "KEYWORD.ITEM": two keywords may have an item of one name: the greater number holds. `keyword`: which
    /// has them, among those of the deck.
    void Add(const std::string& name, const Core::Keywords::IKeywordData& data, std::uint32_t keyword);
    /// Takes the sizes that a keyword chooses. `data`: null if it has none; `isKnown`: false if what it
    /// chooses is not sure.
    void Choose(const std::string& name, const Core::Keywords::IKeywordData* data, bool isKnown);
    /// What is added from now on holds until `Leave`.
    void Enter() { frames_.emplace_back(); }
    void Leave() { frames_.pop_back(); }
    /// What was added since `Enter` are the sizes of a local grid, which the record names. One without sizes
    /// was given them before under its name; else they are not known.
    void NameGrid(const Core::Keywords::IKeywordData& record);

    /// The data of BOX: six bounds, of which those that are missing are those of the grid.
    void SetBox(const Core::Keywords::IKeywordData& data);
    void ResetBox() { box_.clear(); }
    /// A box is open, nobody knows which.
    void LoseBox() { box_ = {{"NX", 0}, {"NY", 0}, {"NZ", 0}}; }

    /// From now on what was not given is not known: something that might have given it could not be read.
    void ForgetDefaults() { defaults_.clear(); }

    std::optional<long long> Find(const std::string& name) const;
    /// The same as if no box were open; empty for one that is doubted.
    std::optional<long long> FindWhole(const std::string& name) const;
    /// The size is wrong, as the data of a keyword have shown: nothing is to be judged by it.
    void Doubt(const std::string& name) { doubted_.insert(name); }
    /// The same for all sizes that a record gives, of which that was reported.
    void DoubtAllOf(const Core::Keywords::IKeywordData& data);
    /// Only what the deck gives, not defaults, and which keyword gives it.
    struct Given {
        long long value;
        std::uint32_t keyword;
        bool isDefault; ///< the keyword leaves it out
    };
    std::optional<Given> FindGiven(const std::string& name) const;

    /// A size that a record gives too, with another number.
    struct Difference {
        std::string name;
        long long value; ///< of the record
        Given other; ///< of the keyword
    };
    /// The first of the record that isn't as in `keyword`.
    std::optional<Difference> FindDifference(
        const Core::Keywords::IKeywordData& data, const std::string& keyword) const;

    /// What numbers may be at most: the size where it is more than 0, else the greatest number.
    long long FindLimit(const std::string& name) const;

    /// True the first time that it is asked of a size: one that is wrong is reported once.
    bool IsFirstReport(const std::string& name) { return reported_.insert(name).second; }
    /// Of which that was said.
    const std::unordered_set<std::string>& GetReported() const { return reported_; }

private:
    std::optional<long long> FindOfGrid(const std::string& name) const;

    using Numbers = std::unordered_map<std::string, long long>;
    using Sizes = std::unordered_map<std::string, Given>;

    Core::Keywords::SimulatorType::Enum simulator_;
    const std::vector<SizeRule>& choices_;
    std::unordered_map<std::string, std::string> chosen_; // sizes as texts; empty: not known
    Numbers defaults_;
    std::vector<Sizes> frames_; // below 0: not known
    std::unordered_map<std::string, Sizes> grids_; // local ones, by their names in capitals
    Numbers box_; // 0: not known
    std::unordered_set<std::string> doubted_;
    std::unordered_set<std::string> reported_;
};

} // namespace Veld::Quor::Core::Decks
