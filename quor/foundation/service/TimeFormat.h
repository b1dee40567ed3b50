#pragma once

#include "quor/foundation/Export.h"

#include <iosfwd>
#include <string>

namespace Veld::Quor::Core::Service {

class Time;

/// A format together with the time that is to be read by it. Refers to both; made for one expression.
class VELD_QUOR_EXPORT BoundTimeFormat {
public:
    /// Reads the text of the stream by the format into the bound time. A text that does not fit, or a date
    /// that cannot be, sets `failbit` and leaves the time as it was. What follows the format stays in the
    /// stream.
    friend VELD_QUOR_EXPORT std::istream& operator>>(std::istream& stream, const BoundTimeFormat& bound);

private:
    friend class TimeFormat;
    BoundTimeFormat(const std::string& format, Time& time);

    const std::string& format_;
    Time& time_;
};

/// A text form of a point in time with the conversions `%Y`, `%m`, `%d`, `%H`, `%M`, `%S` and `%L`
/// (milliseconds, one to three digits), for instance "%Y-%m-%d %H:%M:%S.%L". A format without a date means 1
/// January 1900; without a time of day, midnight.
class VELD_QUOR_EXPORT TimeFormat {
public:
    /// Keeps a copy of the format. An invalid one fails when a text is read.
    explicit TimeFormat(const std::string& format);
    TimeFormat(const TimeFormat&);
    TimeFormat(TimeFormat&&) noexcept;
    TimeFormat& operator=(const TimeFormat&);
    TimeFormat& operator=(TimeFormat&&) noexcept;
    ~TimeFormat();

    /// Binds the format to the time that is to be read: `stream >> format(time)`. This object and `time` must
    /// outlive the result.
    BoundTimeFormat operator()(Time& time) const;

private:
    std::string format_;
};

} // namespace Veld::Quor::Core::Service
