#include "tools/quor/terminal/ProgressBar.h"

#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Tools {

namespace {

constexpr std::chrono::milliseconds patience(500);
constexpr std::chrono::milliseconds pause(100);
constexpr const char* wipe = "\r\x1b[K";

} // namespace

ProgressBar::ProgressBar()
    : next_(start_ + patience)
    , isWanted_(IsTerminal(Stream::Error))
{
}

ProgressBar::~ProgressBar()
{
    if (isDrawn_)
        PrintAside(wipe);
}

void ProgressBar::Show(std::size_t done, std::size_t known)
{
    const Clock::time_point now = Clock::now();
    if (!isWanted_ || now < next_)
        return;
    next_ = now + pause;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    PrintAside(
        wipe + ProgressText(done, known, seconds, GetWidth(Stream::Error) - 1, TakesColour(Stream::Error)));
    isDrawn_ = true;
}

std::string ProgressText(
    std::size_t done, std::size_t known, double seconds, std::size_t width, bool isColoured)
{
    constexpr std::size_t widest = 40;
    constexpr double megabyte = 1e6;
    const double part =
        known == 0 ? 1 : std::min(1.0, static_cast<double>(done) / static_cast<double>(known));
    const double speed = seconds > 0 ? static_cast<double>(done) / megabyte / seconds : 0;
    std::string numbers =
        fmt::format("{:3}%  {:.0f} MB/s", static_cast<int>(part * 100), speed); // a started percent is none
    if (width < numbers.size())
        return {};
    const std::size_t room = std::min(widest, width - numbers.size());
    constexpr std::size_t around = 4; // brackets and blanks
    if (room <= around)
        return numbers;
    const std::size_t length = room - around;
    const auto filled = static_cast<std::size_t>(part * static_cast<double>(length));
    const std::string bar(filled, '=');
    return fmt::format("[{}{}]  {}", isColoured ? "\x1b[32m" + bar + "\x1b[0m" : bar,
        std::string(length - filled, ' '), numbers);
}

} // namespace Veld::Quor::Tools
