// The exported bases have nothing but equality.

#include "quor/data/KeywordDataEqual.h"
#include "quor/data/KeywordMapData.h"
#include "quor/data/KeywordRawData.h"
#include "quor/data/KeywordRecordData.h"

namespace Veld::Quor::Core::Keywords {

KeywordMapData::KeywordMapData() = default;
KeywordMapData::KeywordMapData(const KeywordMapData&) = default;
KeywordMapData::KeywordMapData(KeywordMapData&&) noexcept = default;
KeywordMapData& KeywordMapData::operator=(const KeywordMapData&) = default;
KeywordMapData& KeywordMapData::operator=(KeywordMapData&&) noexcept = default;
KeywordMapData::~KeywordMapData() = default;

bool KeywordMapData::operator==(const IKeywordData& other) const
{
    return KeywordDataEqual(*this, other);
}

KeywordRawData::KeywordRawData() = default;
KeywordRawData::KeywordRawData(const KeywordRawData&) = default;
KeywordRawData::KeywordRawData(KeywordRawData&&) noexcept = default;
KeywordRawData& KeywordRawData::operator=(const KeywordRawData&) = default;
KeywordRawData& KeywordRawData::operator=(KeywordRawData&&) noexcept = default;
KeywordRawData::~KeywordRawData() = default;

bool KeywordRawData::operator==(const IKeywordData& other) const
{
    return KeywordDataEqual(*this, other);
}

KeywordRecordData::KeywordRecordData() = default;
KeywordRecordData::KeywordRecordData(const KeywordRecordData&) = default;
KeywordRecordData::KeywordRecordData(KeywordRecordData&&) noexcept = default;
KeywordRecordData& KeywordRecordData::operator=(const KeywordRecordData&) = default;
KeywordRecordData& KeywordRecordData::operator=(KeywordRecordData&&) noexcept = default;
KeywordRecordData::~KeywordRecordData() = default;

bool KeywordRecordData::operator==(const IKeywordData& other) const
{
    return KeywordDataEqual(*this, other);
}

} // namespace Veld::Quor::Core::Keywords
