#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// Base for a host's own class of a record: it compares as the library's do.
class VELD_QUOR_EXPORT KeywordRecordData : public IKeywordRecordData {
public:
    KeywordRecordData();
    KeywordRecordData(const KeywordRecordData&);
    KeywordRecordData(KeywordRecordData&&) noexcept;
    KeywordRecordData& operator=(const KeywordRecordData&);
    KeywordRecordData& operator=(KeywordRecordData&&) noexcept;
    ~KeywordRecordData() override;

    bool operator==(const IKeywordData& other) const override;
};

} // namespace Veld::Quor::Core::Keywords
