#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// Text that nobody parses.
class VELD_QUOR_EXPORT IKeywordRawData : public IKeywordData {
public:
    ~IKeywordRawData() override;

    virtual const std::string& GetData() const = 0;
    virtual void SetData(const std::string& text) = 0;

protected:
    IKeywordRawData();
    IKeywordRawData(const IKeywordRawData&);
    IKeywordRawData& operator=(const IKeywordRawData&);
};

} // namespace Veld::Quor::Core::Keywords
