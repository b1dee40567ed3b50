#pragma once

#include "quor/foundation/service/Time.h"

namespace Veld::Quor::Core::Keywords {

class IKeywordRecordData;

/// The date of a record of START or DATES: day, month, year, time of day. `Service::Time::MinTime()` for one
/// that can't be read; never throws for a bad date.
Service::Time ReadDateRecord(const IKeywordRecordData& record);

} // namespace Veld::Quor::Core::Keywords
