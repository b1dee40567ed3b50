#pragma once

#include "quor/deck/FindingCodes.h"
#include "quor/deck/Target.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/read/words/DeckText.h"
#include "quor/deck/internal/read/words/VariableValues.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/foundation/UnitSystem.h"
#include "quor/metadata/ChoiceMatch.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordChoiceMD;
}

namespace Veld::Quor::Core::Decks {

/// What is wrong with a word, to be reported where it is.
struct Misfit {
    Code code;
    std::string message;
    std::string hint = {};
    std::string instead = {}; ///< what the deck is certain to mean by the word; empty if that isn't known
};

/// What is wrong with a word.
struct WordErrors {
    std::optional<Misfit> misfit; ///< why it is no value
    std::vector<Misfit> remarks; ///< on a value

    bool IsEmpty() const { return !misfit && remarks.empty(); }
};

/// What a word says of an item. Of a choice the value is the index.
template <class T>
struct Reading {
    std::optional<T> value; ///< empty without a misfit: a variable has no value, and that was reported
    WordErrors errors;
    bool hasVariables = false; ///< there are variables in the word
};

/// Reads the values of a keyword's items from words.
class ValueReader {
public:
    ValueReader(const Target& target, VariableValues& variables)
        : target_(target)
        , variables_(variables)
    {
    }

    /// The messages name the keyword. `mayHaveQuantities`: a name that the user defines may be in place of a
    /// real number, and is read as a variable without a value.
    void Begin(const Token& keyword, bool mayHaveQuantities)
    {
        keyword_ = keyword.text;
        mayHaveQuantities_ = mayHaveQuantities;
    }

    /// The messages name the units of the deck from here on.
    void SetUnits(Core::Keywords::UnitSystem::Enum units) { units_ = units; }

    /// T: bool, int, double or std::string, as the item's data are stored. The limits of the item are not
    /// checked.
    template <class T>
    Reading<T> Read(const DataPlan& item, const Token& word);

    /// The value is not within the item's limits.
    /// `others`: how many more values aren't.
    Misfit Beyond(const DataPlan& item, double value, long long others = 0) const;
    /// "WCONPROD, ORAT" for an item with a name, else the keyword's name.
    std::string In(const DataPlan& item) const;

private:
    /// A word, or what became of it when variables were replaced.
    struct Text {
        std::string_view text;
        bool isQuoted;
    };

    /// " psi" if that is the unit of the item in the deck; empty if that isn't known.
    std::string UnitAfter(const DataPlan& item) const;
    template <class T>
    std::optional<T> Find(const DataPlan& item, const Text& word);
    template <class T>
    Misfit MisfitOf(const DataPlan& item, const Text& word) const;
    void Remark(const DataPlan& item, const Text& word, const std::string& value, std::vector<Misfit>& to);
    void Remark(const DataPlan& item, const Text& word, int value, std::vector<Misfit>& to);
    void Remark(const DataPlan&, const Text&, double, std::vector<Misfit>&) { }
    void Remark(const DataPlan&, const Text&, bool, std::vector<Misfit>&) { }

    Target target_;
    VariableValues& variables_;
    std::string_view keyword_;
    bool mayHaveQuantities_ = false;
    std::optional<Core::Keywords::UnitSystem::Enum> units_; // empty: the start of the deck isn't there
    Keywords::ChoiceMatch match_; // of the choice that was read last
};

/// The message on a value below `least` or above `most`. `where`: the keyword, with the item if it has a
/// name. `others`: how many more values are out of range. `unit`: empty, or a blank and the unit.
std::string OutOfRangeText(const std::string& where, double value, double least, double most,
    long long others = 0, const std::string& unit = {});

/// YES and NO, in the forms that decks have for them.
std::optional<bool> ToBoolean(std::string_view text);

/// Whether the word can be a value of the item, within its limits.
bool CanBeValue(const DataPlan& item, const DataWord& word);

inline bool IsWithinLimits(const DataPlan& item, double value)
{
    return value >= item.min && value <= item.max;
}

} // namespace Veld::Quor::Core::Decks
