#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/foundation/service/Time.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordData;
class IKeywordRecordData;
class PathAliases;

/// The data of a few keywords that every reader of decks needs. A keyword is recognized by the metadata of
/// its data, looked up at the first call and kept for the rest of the process: data of a table that was
/// loaded again are refused. `GetTime`, `Advance` and `AddPathAliases` look nothing up and serve each table.
class VELD_QUOR_EXPORT DataAccessUtils {
public:
    /// The text, without a value if the deck gave none; a reference into the data. Throws
    /// `Service::Exception` for null and for data of another keyword.
    /// @{
    static const Service::Optional<std::string>& GetINCLUDEFileName(const IKeywordData* data);
    static const Service::Optional<std::string>& GetMESSAGEText(const IKeywordData* data);
    static const Service::Optional<std::string>& GetGDFILEName(const IKeywordData* data);
    static const Service::Optional<std::string>& GetTOLGRIDName(const IKeywordData* data);
    /// @}
    /// Replaces the text by a copy of `value`. Throws as the getters do.
    /// @{
    static void SetINCLUDEFileName(IKeywordData* data, const std::string& value);
    static void SetMESSAGEText(IKeywordData* data, const std::string& value);
    static void SetGDFILEName(IKeywordData* data, const std::string& value);
    static void SetTOLGRIDName(IKeywordData* data, const std::string& value);
    /// @}

    /// `Service::Time::MinTime()` for a date that can't be read. Throws `Service::Exception` for null and for
    /// data of another keyword, as `GetTimesFromDATES`.
    static Service::Time GetTimeFromSTART(const IKeywordData* data);
    /// Dates that can't be read are left out.
    static std::vector<Service::Time> GetTimesFromDATES(const IKeywordData* data);

    /// The simulated time after one keyword. DATES: its last date. TSTEP: `current` (or, undefined, `start`)
    /// and each step. TIME: `start` and its last value. Else, for null, and for a date that can't be read:
    /// `current`. `ticksPerUnit` is the number of `Service::Time` ticks in one unit of the keyword's numbers.
    /// Each step is cut to whole ticks by itself.
    static Service::Time AdvanceTime(const Service::Time& start, const Service::Time& current,
        long long ticksPerUnit, const IKeywordData* data);

    /// The date of one record, which starts with day, month, year and time of day, as those of START and
    /// DATES do. `Service::Time::MinTime()` for a date that can't be read.
    static Service::Time GetTime(const IKeywordRecordData& date);
    /// `time` and `units` of `ticksPerUnit` each, cut to whole ticks. Undefined if `time` is.
    static Service::Time Advance(const Service::Time& time, long long ticksPerUnit, double units);

    /// Enters each record of `data`, a list of records whose first two items are alias and path; not null,
    /// and neither is checked. An item that is not given counts as empty.
    static void AddPathAliases(const IKeywordData* data, PathAliases& aliases);

private:
    static void AssertINCLUDEData(const IKeywordData* data);
    static void AssertMESSAGEData(const IKeywordData* data);
    static void AssertGDFILEData(const IKeywordData* data);
    static void AssertTOLGRIDData(const IKeywordData* data);
};

} // namespace Veld::Quor::Core::Keywords
