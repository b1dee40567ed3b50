#pragma once

#include "quor/data/IKeywordMapData.h"
#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// Base for a host's own class of a map: it compares as the library's do.
class VELD_QUOR_EXPORT KeywordMapData : public IKeywordMapData {
public:
    KeywordMapData();
    KeywordMapData(const KeywordMapData&);
    KeywordMapData(KeywordMapData&&) noexcept;
    KeywordMapData& operator=(const KeywordMapData&);
    KeywordMapData& operator=(KeywordMapData&&) noexcept;
    ~KeywordMapData() override;

    bool operator==(const IKeywordData& other) const override;
};

} // namespace Veld::Quor::Core::Keywords
