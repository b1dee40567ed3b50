#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordDataMDInternal.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// What the eleven metadata classes have in common, behind the public interface of each.
template <class Interface, IKeywordDataMD::MDType::Enum type>
class VELD_QUOR_EXPORT MDNode : public Interface, public IKeywordDataMDInternal {
public:
    IKeywordDataMD::MDType::Enum GetType() const override { return type; }
    const std::string& GetName() const override { return name_; }
    const std::string& GetDescription() const override { return description_; }
    unsigned int GetItemNumber() const override { return itemNumber_; }

    IKeywordDataMD& MD() override { return *this; }
    const IKeywordDataMD& MD() const override { return *this; }

    void SetName(const std::string& name) { name_ = name; }
    void SetDescription(const std::string& description) { description_ = description; }
    void SetItemNumber(unsigned int itemNumber) { itemNumber_ = itemNumber; }

private:
    std::string description_;
    std::string name_;
    unsigned int itemNumber_ = 0;
};

} // namespace Veld::Quor::Core::Keywords
