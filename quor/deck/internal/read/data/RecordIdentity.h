#pragma once

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Core::Decks {

/// An item that distinguishes one record from another, and its value.
struct IdentityItem {
    const Core::Keywords::IKeywordDataMD* md;
    ScalarValue value;
};

/// As addresses write it: "1*" if it isn't given.
std::string TextOf(const IdentityItem& item);

/// The identifiers of a record, or of the first one of a list, and of what it holds, in their order.
std::vector<IdentityItem> IdentityOf(const Core::Keywords::IKeywordData& data);

/// Whether it is a list of records that have identifiers.
bool IsListOfNamedRecords(const Core::Keywords::IKeywordDataMD* md);

} // namespace Veld::Quor::Core::Decks
