#pragma once

#include "quor/data/IKeywordRawData.h"
#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// Base for a host's own class of raw text: it compares as the library's do.
class VELD_QUOR_EXPORT KeywordRawData : public IKeywordRawData {
public:
    KeywordRawData();
    KeywordRawData(const KeywordRawData&);
    KeywordRawData(KeywordRawData&&) noexcept;
    KeywordRawData& operator=(const KeywordRawData&);
    KeywordRawData& operator=(KeywordRawData&&) noexcept;
    ~KeywordRawData() override;

    bool operator==(const IKeywordData& other) const override;
};

} // namespace Veld::Quor::Core::Keywords
