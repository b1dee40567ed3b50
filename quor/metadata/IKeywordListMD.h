#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class ICustomReadTermination;

/// One item type, repeated. The size texts are those of the document, a count or an expression that the
/// deck's reader understands; null where it has none.
class VELD_QUOR_EXPORT IKeywordListMD : public IKeywordDataMD {
public:
    ~IKeywordListMD() override;

    /// Null for a list whose document names no item.
    virtual const IKeywordDataMD* GetItemMD() const = 0;
    /// If the document says nothing: `NONE` for a list with a size, else `SLASH`; `CUSTOMIZED` with words
    /// that end it.
    virtual TerminationType::Enum GetTermination() const = 0;
    /// Null unless the document names words that end the list.
    virtual const ICustomReadTermination* GetCustomReadTermination() const = 0;
    /// Number of elements, exact or at least or at most; null if the document has none.
    /// @{
    virtual const std::string* GetSize() const = 0;
    virtual const std::string* GetMinSize() const = 0;
    virtual const std::string* GetMaxSize() const = 0;
    /// @}
    /// Whether elements may be left to their default; only lists of scalars.
    virtual bool IsItemDefaultable() const = 0;
    /// Whether an element left to its default has the value of the one before it. Without meaning unless
    /// `IsItemDefaultable()`.
    virtual bool FillEmptyElementsWithPreviousValue() const = 0;
    /// Layout for a writer: whether the list, or its end, has a separate line. Without a value the writer
    /// is free.
    /// @{
    virtual Service::Optional<bool> WriteStartingOnNewLine() const = 0;
    virtual Service::Optional<bool> WriteTerminationOnNewLine() const = 0;
    /// @}
};

} // namespace Veld::Quor::Core::Keywords
