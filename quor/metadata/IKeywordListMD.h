#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class ICustomReadTermination;

/// One item type, repeated. The size texts are those of the document, a count or an expression that the
/// deck's reader understands; null where it gives none.
class VELD_QUOR_EXPORT IKeywordListMD : public IKeywordDataMD {
public:
    ~IKeywordListMD() override;

    /// Null for a list whose document names no item.
    virtual const IKeywordDataMD* GetItemMD() const = 0;
    virtual TerminationType::Enum GetTermination() const = 0;
    /// Null unless the document names words that end the list.
    virtual const ICustomReadTermination* GetCustomReadTermination() const = 0;
    virtual const std::string* GetSize() const = 0;
    virtual const std::string* GetMinSize() const = 0;
    virtual const std::string* GetMaxSize() const = 0;
    /// Whether elements may be left to their default; only lists of scalars.
    virtual bool IsItemDefaultable() const = 0;
    virtual bool FillEmptyElementsWithPreviousValue() const = 0;
    /// Layout for a writer; without a value the writer is free.
    virtual Service::Optional<bool> WriteStartingOnNewLine() const = 0;
    virtual Service::Optional<bool> WriteTerminationOnNewLine() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
