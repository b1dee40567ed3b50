#include "quor/data/DataAccessUtils.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/data/PathAliases.h"
#include "quor/data/internal/DateRecord.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/internal/MDCast.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"
#include "quor/syntax/internal/TableKeyword.h"

#include <cmath>
#include <limits>

namespace Veld::Quor::Core::Keywords {

using Service::Time;
using String = Service::Optional<std::string>;

namespace {

/// A keyword as the first look-up found it, recognized by its root metadata, for the rest of the process.
class KeptKeyword {
public:
    explicit KeptKeyword(const char* name)
        : table_(TableNumber())
    {
        if (const auto* const syntax = KeywordSyntaxTable::Instance(false, true).Lookup(name, true))
            md_ = syntax->GetDataMD();
    }

    // Wanted: data of a table that was loaded later are refused, also where they are at an old address.
    bool Has(const IKeywordData& data) const { return data.GetMD() == md_ && table_ == TableNumber(); }

private:
    const IKeywordDataMD* md_ = nullptr; // null also if the document lacks the keyword
    unsigned long table_;
};

void Expect(const IKeywordData* data, const KeptKeyword& keyword, const char* what)
{
    if (!data || !keyword.Has(*data))
        throw KeywordException(std::string("Keywords::DataAccessUtils: expecting ") + what + " data");
}

const String& TextOf(const IKeywordData* data)
{
    return *static_cast<const String*>(CastMD<const IKeywordRecordData>(*data).GetData(0));
}

void SetText(IKeywordData* data, const std::string& value)
{
    *static_cast<String*>(CastMD<IKeywordRecordData>(*data).GetData(0)) = value;
}

const IKeywordRecordData& RecordAt(const IKeywordListData& list, std::int64_t i)
{
    const auto* const element = static_cast<const IKeywordData*>(list.GetData(static_cast<std::size_t>(i)));
    return CastMD<const IKeywordRecordData>(*element);
}

double RealAt(const IKeywordListData& list, std::int64_t i)
{
    return *static_cast<const double*>(list.GetData(static_cast<std::size_t>(i)));
}

/// Cut to whole ticks towards zero; kept within the range of ticks, where a cast would not be defined.
long long TicksOf(long long ticksPerUnit, double units)
{
    constexpr long long most = std::numeric_limits<long long>::max();
    const double ticks = static_cast<double>(ticksPerUnit) * units;
    if (std::isnan(ticks))
        return 0;
    if (std::abs(ticks) >= static_cast<double>(most))
        return ticks > 0 ? most : -most;
    return static_cast<long long>(ticks);
}

Time AdvanceByDATES(const Time& current, const IKeywordListData& dates)
{
    if (dates.GetSize() == 0)
        return current;
    const Time last = ReadDateRecord(RecordAt(dates, dates.GetSize() - 1));
    return last.IsDef() ? last : current;
}

Time AdvanceByTSTEP(
    const Time& start, const Time& current, long long ticksPerUnit, const IKeywordListData& steps)
{
    Time time = current.IsDef() ? current : start;
    for (std::int64_t i = 0; i < steps.GetSize(); ++i)
        time = DataAccessUtils::Advance(time, ticksPerUnit, RealAt(steps, i));
    return time;
}

Time AdvanceByTIME(
    const Time& start, const Time& current, long long ticksPerUnit, const IKeywordListData& times)
{
    if (times.GetSize() == 0)
        return current;
    return DataAccessUtils::Advance(start, ticksPerUnit, RealAt(times, times.GetSize() - 1));
}

} // namespace

void DataAccessUtils::AssertINCLUDEData(const IKeywordData* data)
{
    static const KeptKeyword keyword("INCLUDE");
    Expect(data, keyword, "an INCLUDE");
}

void DataAccessUtils::AssertMESSAGEData(const IKeywordData* data)
{
    static const KeptKeyword keyword("MESSAGE");
    Expect(data, keyword, "an MESSAGE");
}

void DataAccessUtils::AssertGDFILEData(const IKeywordData* data)
{
    static const KeptKeyword keyword("GDFILE");
    Expect(data, keyword, "an GDFILE");
}

void DataAccessUtils::AssertTOLGRIDData(const IKeywordData* data)
{
    static const KeptKeyword keyword("TOLGRID");
    Expect(data, keyword, "an TOLGRID");
}

const String& DataAccessUtils::GetINCLUDEFileName(const IKeywordData* data)
{
    AssertINCLUDEData(data);
    return TextOf(data);
}

const String& DataAccessUtils::GetMESSAGEText(const IKeywordData* data)
{
    AssertMESSAGEData(data);
    return TextOf(data);
}

const String& DataAccessUtils::GetGDFILEName(const IKeywordData* data)
{
    AssertGDFILEData(data);
    return TextOf(data);
}

const String& DataAccessUtils::GetTOLGRIDName(const IKeywordData* data)
{
    AssertTOLGRIDData(data);
    return TextOf(data);
}

void DataAccessUtils::SetINCLUDEFileName(IKeywordData* data, const std::string& value)
{
    AssertINCLUDEData(data);
    SetText(data, value);
}

void DataAccessUtils::SetMESSAGEText(IKeywordData* data, const std::string& value)
{
    AssertMESSAGEData(data);
    SetText(data, value);
}

void DataAccessUtils::SetGDFILEName(IKeywordData* data, const std::string& value)
{
    AssertGDFILEData(data);
    SetText(data, value);
}

void DataAccessUtils::SetTOLGRIDName(IKeywordData* data, const std::string& value)
{
    AssertTOLGRIDData(data);
    SetText(data, value);
}

Time DataAccessUtils::GetTimeFromSTART(const IKeywordData* data)
{
    static const KeptKeyword keyword("START");
    Expect(data, keyword, "START");
    return ReadDateRecord(CastMD<const IKeywordRecordData>(*data));
}

std::vector<Time> DataAccessUtils::GetTimesFromDATES(const IKeywordData* data)
{
    static const KeptKeyword keyword("DATES");
    Expect(data, keyword, "DATES");
    const auto& dates = CastMD<const IKeywordListData>(*data);
    std::vector<Time> times;
    for (std::int64_t i = 0; i < dates.GetSize(); ++i) {
        Time time = ReadDateRecord(RecordAt(dates, i));
        if (time.IsDef())
            times.push_back(time);
    }
    return times;
}

Time DataAccessUtils::AdvanceTime(
    const Time& start, const Time& current, long long ticksPerUnit, const IKeywordData* data)
{
    static const KeptKeyword dates("DATES");
    static const KeptKeyword tstep("TSTEP");
    static const KeptKeyword time("TIME");
    if (!data)
        return current;
    if (dates.Has(*data))
        return AdvanceByDATES(current, CastMD<const IKeywordListData>(*data));
    if (tstep.Has(*data))
        return AdvanceByTSTEP(start, current, ticksPerUnit, CastMD<const IKeywordListData>(*data));
    if (time.Has(*data))
        return AdvanceByTIME(start, current, ticksPerUnit, CastMD<const IKeywordListData>(*data));
    return current;
}

Time DataAccessUtils::GetTime(const IKeywordRecordData& date)
{
    return ReadDateRecord(date);
}

Time DataAccessUtils::Advance(const Time& time, long long ticksPerUnit, double units)
{
    return time + TicksOf(ticksPerUnit, units);
}

void DataAccessUtils::AddPathAliases(const IKeywordData* data, PathAliases& aliases)
{
    const auto& list = CastMD<const IKeywordListData>(*data);
    for (std::int64_t i = 0; i < list.GetSize(); ++i) {
        const IKeywordRecordData& record = RecordAt(list, i);
        const auto textAt = [&record](int item) { return *static_cast<const String*>(record.GetData(item)); };
        aliases.setAlias(textAt(0).ValueOr({}), textAt(1).ValueOr({}));
    }
}

} // namespace Veld::Quor::Core::Keywords
