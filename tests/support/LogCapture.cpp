#include "tests/support/LogCapture.h"

#include <utility>

namespace Veld::Quor::Tests {

using namespace Core::Service;

LogCapture::LogCapture()
    : earlier_(Log::SetHandler([this](const char* text, MessageSeverity severity) {
        lines_.push_back({text, severity});
    }))
{
}

LogCapture::~LogCapture()
{
    Log::SetHandler(std::move(earlier_));
}

std::string LogCapture::Text() const
{
    std::string all;
    for (const Line& line : lines_)
        all += line.text + '\n';
    return all;
}

} // namespace Veld::Quor::Tests
