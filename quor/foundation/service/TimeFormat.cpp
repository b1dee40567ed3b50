#include "quor/foundation/service/TimeFormat.h"

#include "quor/foundation/service/Time.h"

#include <ctime>
#include <iomanip>
#include <istream>
#include <stdexcept>

namespace Veld::Quor::Core::Service {

namespace {

/// The standard library's formats stop at the second.
void ReadMilliseconds(std::istream& stream, int& milliseconds)
{
    int digits = 0;
    milliseconds = 0;
    for (; digits < 3; ++digits) {
        const int next = stream.peek();
        if (next < '0' || next > '9')
            break;
        milliseconds = 10 * milliseconds + (stream.get() - '0');
    }
    if (digits == 0)
        stream.setstate(std::ios::failbit);
    else
        stream.clear(stream.rdstate() & ~std::ios::failbit); // a peek at the end is not a failure
}

} // namespace

BoundTimeFormat::BoundTimeFormat(const std::string& format, Time& time)
    : format_(format)
    , time_(time)
{
}

std::istream& operator>>(std::istream& stream, const BoundTimeFormat& bound)
{
    std::tm fields{};
    fields.tm_mday = 1;
    int milliseconds = 0;
    const std::string& format = bound.format_;
    for (std::string::size_type from = 0; stream && from < format.size();) {
        const auto at = format.find("%L", from);
        const std::string part = format.substr(from, at == std::string::npos ? at : at - from);
        if (!part.empty())
            stream >> std::get_time(&fields, part.c_str());
        if (at == std::string::npos)
            break;
        if (stream)
            ReadMilliseconds(stream, milliseconds);
        from = at + 2;
    }
    if (!stream)
        return stream;
    try {
        bound.time_ = Time(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
            fields.tm_min, fields.tm_sec, milliseconds);
    } catch (const std::invalid_argument&) {
        stream.setstate(std::ios::failbit);
    }
    return stream;
}

TimeFormat::TimeFormat(const std::string& format)
    : format_(format)
{
}

TimeFormat::TimeFormat(const TimeFormat&) = default;
TimeFormat::TimeFormat(TimeFormat&&) noexcept = default;
TimeFormat& TimeFormat::operator=(const TimeFormat&) = default;
TimeFormat& TimeFormat::operator=(TimeFormat&&) noexcept = default;
TimeFormat::~TimeFormat() = default;

BoundTimeFormat TimeFormat::operator()(Time& time) const
{
    return {format_, time};
}

} // namespace Veld::Quor::Core::Service
