#pragma once

#include "quor/foundation/service/Log.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tests {

/// Takes the log for as long as it lives.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    struct Line {
        std::string text;
        Core::Service::MessageSeverity severity;
    };
    const std::vector<Line>& Lines() const { return lines_; }
    /// All texts, each with a line end.
    std::string Text() const;

private:
    std::vector<Line> lines_;
    Core::Service::LogHandler earlier_;
};

} // namespace Veld::Quor::Tests
