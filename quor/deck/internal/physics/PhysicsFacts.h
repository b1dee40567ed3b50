#pragma once

#include "quor/deck/FindingCodes.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/physics/RoleTable.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"
#include "quor/foundation/UnitSystem.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the checks of the physics of a deck know of it: the tables of the section that ends, and the keywords
/// of roles of their own so far.
class PhysicsFacts {
public:
    using Column = RoleTable::Column;
    using Related = FindingReporter::Related;

    PhysicsFacts(const DeckContents& deck, const Dimensions& dimensions, FindingReporter& reporter)
        : deck_(deck)
        , dimensions_(dimensions)
        , reporter_(reporter)
    {
    }

    void AddTables(std::vector<RoleTable> tables) { tables_.push_back(std::move(tables)); }
    void AddKeyword(Role::Enum role, std::uint32_t keyword) { keywords_[role].push_back(keyword); }
    /// Something may change which cells are active.
    void LoseCells() { areCellsKnown_ = false; }
    void ForgetTables() { tables_.clear(); }
    /// A keyword was missed.
    void Lose() { isSure_ = false; }

    /// The depths of datum of the section are those of the reservoir from now on.
    void KeepDatumDepths();

    /// Whether no keyword so far was missed.
    bool IsSure() const { return isSure_; }
    /// The least and the greatest; 0 if there is none.
    const std::pair<double, double>& GetDatumDepths() const { return datumDepths_; }
    bool AreCellsKnown() const { return areCellsKnown_; }
    bool Has(Role::Enum role) const { return FindKeyword(role) != nullptr; }
    /// The last one; null if there is none.
    const KeywordInstance* FindKeyword(Role::Enum role) const;
    /// Empty if it isn't known.
    std::optional<Keywords::UnitSystem::Enum> FindUnits() const;
    std::optional<long long> FindSize(const char* name) const { return dimensions_.FindWhole(name); }

    /// Calls `use` with each table of the section that is not a copy of another.
    template <class Use>
    void ForEachTable(const Use& use) const
    {
        for (const std::vector<RoleTable>& tables : tables_) {
            for (std::size_t i = 0; i < tables.size(); ++i) {
                if (tables[i].element == i)
                    use(tables[i]);
            }
        }
    }
    /// The tables of the last keyword of the section that has all these columns; null if there is none.
    const std::vector<RoleTable>* FindTables(const std::vector<Role::Enum>& roles) const;

    const std::string& NameOf(const RoleTable& table) const;
    const DeckContents& GetDeck() const { return deck_; }
    TextRange RangeOf(const RoleTable& table, const Column& column, std::size_t row) const
    {
        return Decks::RangeOf(deck_, table, column, row);
    }
    Related RelatedTo(
        const RoleTable& table, const Column& column, std::size_t row, const std::string& what) const;
    void Report(const TextRange& range, Code code, const std::string& message, const std::string& hint,
        const std::vector<Related>& related = {}) const
    {
        reporter_.Report(range, code, message, hint, {}, related);
    }
    /// A number that is in units of a system instead of those of the deck: once a deck.
    /// @{
    void ReportUnits(const TextRange& range, const std::string& message, Keywords::UnitSystem::Enum fit);
    bool AreUnitsReported() const { return areUnitsReported_; }
    /// @}
    /// At a value of a table.
    void Report(const RoleTable& table, const Column& column, std::size_t row, Code code,
        const std::string& message, const std::string& hint, const std::vector<Related>& related = {}) const
    {
        Report(RangeOf(table, column, row), code, message, hint, related);
    }

private:
    const DeckContents& deck_;
    const Dimensions& dimensions_;
    FindingReporter& reporter_;
    std::vector<std::vector<RoleTable>> tables_; // of each keyword of the section
    std::map<Role::Enum, std::vector<std::uint32_t>> keywords_;
    bool isSure_ = true;
    bool areCellsKnown_ = true;
    bool areUnitsReported_ = false;
    std::pair<double, double> datumDepths_ = {};
};

} // namespace Veld::Quor::Core::Decks
