#include "tools/quor/terminal/ProgressBar.h"

#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Tools {

namespace {

constexpr std::chrono::milliseconds patience(500);
constexpr std::chrono::milliseconds pause(100);
constexpr const char* wipe = "\r\x1b[K";

/// A bar of which a part is filled, and the numbers after it.
std::string BarText(double part, const std::string& numbers, std::size_t width, bool isColoured)
{
    constexpr std::size_t widest = 40;
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

} // namespace

ProgressBar::ProgressBar()
    : next_(start_ + patience)
    , isWanted_(IsTerminal(Stream::Error))
{
}

ProgressBar::~ProgressBar()
{
    Hide();
}

void ProgressBar::Hide()
{
    if (isDrawn_)
        PrintAside(wipe);
    isDrawn_ = false;
}

void ProgressBar::Show(std::size_t done, std::size_t known)
{
    if (const auto seconds = Begin())
        PrintAside(wipe
            + ProgressText(done, known, *seconds, GetWidth(Stream::Error) - 1, TakesColour(Stream::Error)));
}

void ProgressBar::ShowDecks(std::size_t done, std::size_t all)
{
    if (const auto seconds = Begin())
        PrintAside(
            wipe + DecksText(done, all, *seconds, GetWidth(Stream::Error) - 1, TakesColour(Stream::Error)));
}

std::optional<double> ProgressBar::Begin()
{
    const Clock::time_point now = Clock::now();
    if (!isWanted_ || now < next_)
        return std::nullopt;
    next_ = now + pause;
    isDrawn_ = true;
    return std::chrono::duration<double>(now - start_).count();
}

std::string ProgressText(
    std::size_t done, std::size_t known, double seconds, std::size_t width, bool isColoured)
{
    constexpr double megabyte = 1e6;
    const double part =
        known == 0 ? 1 : std::min(1.0, static_cast<double>(done) / static_cast<double>(known));
    const double speed = seconds > 0 ? static_cast<double>(done) / megabyte / seconds : 0;
    return BarText(part,
        fmt::format("{:3}%  {:.0f} MB/s", static_cast<int>(part * 100), speed), // a started percent is none
        width, isColoured);
}

std::string DecksText(std::size_t done, std::size_t all, double seconds, std::size_t width, bool isColoured)
{
    const double rate = seconds > 0 ? static_cast<double>(done) / seconds : 0;
    const auto left = static_cast<long>(rate > 0 ? static_cast<double>(all - done) / rate + 0.5 : 0);
    const std::string time = done == 0 ? "" : fmt::format(", {}:{:02} left", left / 60, left % 60);
    return BarText(all == 0 ? 1 : static_cast<double>(done) / static_cast<double>(all),
        fmt::format("{} of {} decks, {:.1f}/s{}", done, all, rate, time), width, isColoured);
}

} // namespace Veld::Quor::Tools
