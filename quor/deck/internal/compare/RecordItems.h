#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/physics/RolePlans.h"
#include "quor/deck/internal/read/data/DataValue.h"

#include <optional>
#include <string>

namespace Veld::Quor::Core::Decks {

/// The items of a record by what they are. One that the record leaves out has its default.
class RecordItems {
public:
    using Record = Core::Keywords::IKeywordRecordData;

    /// Both must outlive it.
    RecordItems(const Record& record, const RecordRoles& roles)
        : record_(record)
        , roles_(roles)
    {
    }

    bool Has(Role::Enum role) const { return roles_.Find(role) >= 0; }
    /// Of a text, in upper case: names are the same in any case. Empty if it isn't given.
    std::string FindName(Role::Enum role) const;
    /// Of a choice; empty if it isn't given.
    std::string FindWord(Role::Enum role) const;
    /// The same of one that isn't the default.
    std::string FindOtherWord(Role::Enum role) const;
    /// Of a whole number; 0 if it isn't given.
    int FindIndex(Role::Enum role) const;
    /// The same for all items of the role: whether one is above 0.
    bool HasIndex(Role::Enum role) const;
    /// Of a real; empty if it isn't given.
    std::optional<double> FindNumber(Role::Enum role) const;

private:
    const Core::Keywords::IKeywordDataMD& MDOf(int item) const;
    ScalarValue ValueOf(int item) const;

    const Record& record_;
    const RecordRoles& roles_;
};

} // namespace Veld::Quor::Core::Decks
