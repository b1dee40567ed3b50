#pragma once

#include "quor/deck/internal/physics/PhysicsFacts.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Decks {

/// Reports numbers that are not plausible, one of each keyword. Of those that are so in another system of
/// units, one of the deck: the others have the same reason.
class Magnitudes {
public:
    explicit Magnitudes(PhysicsFacts& facts)
        : facts_(facts)
    {
    }

    /// Whether a number of the keyword isn't plausible, reported or not.
    bool HasOdd(const KeywordInstance& keyword, const KeywordRoles& roles);

private:
    struct Limits {
        double least; // in units of the deck
        double greatest;
    };
    struct Number {
        const MagnitudeRule* rule;
        const Keywords::IKeywordDataMD* md; // of a real number
        double value;
        std::size_t element; // where it is
        std::size_t slot;
    };

    bool IsOdd(const MagnitudeRule& rule, const Keywords::IKeywordDataMD& md, double value);
    Limits LimitsOf(const MagnitudeRule& rule, const std::string* measurement) const;
    bool FindOddOfRecords(const KeywordInstance& keyword, const RecordRoles& roles, Number& odd);
    bool FindOddOfLists(const Keywords::IKeywordData& data, const MagnitudeRule& rule, Number& odd);
    bool Report(const KeywordInstance& keyword, const Number& odd);

    PhysicsFacts& facts_;
    std::map<std::pair<const MagnitudeRule*, const std::string*>, Limits> limits_; // by measurement
};

} // namespace Veld::Quor::Core::Decks
