// The special members of the data interfaces, in one place.

#include "quor/data/IKeywordData.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/data/IKeywordRecordData.h"

namespace Veld::Quor::Core::Keywords {

IKeywordData::IKeywordData() = default;
IKeywordData::IKeywordData(const IKeywordData&) = default;
IKeywordData& IKeywordData::operator=(const IKeywordData&) = default;
IKeywordData::~IKeywordData() = default;

IKeywordListData::IKeywordListData() = default;
IKeywordListData::IKeywordListData(const IKeywordListData&) = default;
IKeywordListData& IKeywordListData::operator=(const IKeywordListData&) = default;
IKeywordListData::~IKeywordListData() = default;

IKeywordMapData::IKeywordMapData() = default;
IKeywordMapData::IKeywordMapData(const IKeywordMapData&) = default;
IKeywordMapData& IKeywordMapData::operator=(const IKeywordMapData&) = default;
IKeywordMapData::~IKeywordMapData() = default;

IKeywordRawData::IKeywordRawData() = default;
IKeywordRawData::IKeywordRawData(const IKeywordRawData&) = default;
IKeywordRawData& IKeywordRawData::operator=(const IKeywordRawData&) = default;
IKeywordRawData::~IKeywordRawData() = default;

IKeywordRecordData::IKeywordRecordData() = default;
IKeywordRecordData::IKeywordRecordData(const IKeywordRecordData&) = default;
IKeywordRecordData& IKeywordRecordData::operator=(const IKeywordRecordData&) = default;
IKeywordRecordData::~IKeywordRecordData() = default;

} // namespace Veld::Quor::Core::Keywords
