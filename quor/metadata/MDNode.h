// Part of the implementation of the metadata classes: hosts use IKeywordDataMD and its family instead.

#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordDataMDInternal.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// What the eleven metadata classes have in common, below the public interface of each. Part of the
/// implementation.
template <class Interface, IKeywordDataMD::MDType::Enum type>
class VELD_QUOR_EXPORT MDNode : public Interface, public IKeywordDataMDInternal {
public:
    /// See `IKeywordDataMD`.
    IKeywordDataMD::MDType::Enum GetType() const override { return type; }
    /// See `IKeywordDataMD`.
    const std::string& GetName() const override { return name_; }
    /// See `IKeywordDataMD`.
    const std::string& GetDescription() const override { return description_; }
    /// See `IKeywordDataMD`.
    unsigned int GetItemNumber() const override { return itemNumber_; }

    /// See `IKeywordDataMDInternal`.
    IKeywordDataMD& MD() override { return *this; }
    /// See `IKeywordDataMDInternal`.
    const IKeywordDataMD& MD() const override { return *this; }

    /// Only while the metadata are built.
    void SetName(const std::string& name) { name_ = name; }
    /// Only while the metadata are built.
    void SetDescription(const std::string& description) { description_ = description; }
    /// Only while the metadata are built.
    void SetItemNumber(unsigned int itemNumber) { itemNumber_ = itemNumber; }

private:
    std::string description_;
    std::string name_;
    unsigned int itemNumber_ = 0;
};

} // namespace Veld::Quor::Core::Keywords
