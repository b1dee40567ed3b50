#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// Text that nobody parses.
class VELD_QUOR_EXPORT IKeywordRawData : public IKeywordData {
public:
    ~IKeywordRawData() override;

    /// Empty in new data. Lasts until the text is set.
    virtual const std::string& GetData() const = 0;
    /// Copies the text. Nothing checks that it does not hold the text that ends it in a deck.
    virtual void SetData(const std::string& text) = 0;

protected:
    /// For derived classes alone.
    IKeywordRawData();
    IKeywordRawData(const IKeywordRawData&);
    IKeywordRawData& operator=(const IKeywordRawData&);
};

} // namespace Veld::Quor::Core::Keywords
