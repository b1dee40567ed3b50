#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace Veld::Quor::Tools {

/// A line on standard error that shows how far a work is. There is none if standard error is no terminal, or
/// the work is done soon. What else is printed must wait until the bar is gone.
class ProgressBar {
public:
    ProgressBar();
    /// Wipes the line.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Bytes that are done, of those that are known so far.
    void Show(std::size_t done, std::size_t known);
    /// Decks that are done, of all.
    void ShowDecks(std::size_t done, std::size_t all);
    /// Wipes the line, so that something else can be printed.
    void Hide();

private:
    using Clock = std::chrono::steady_clock;

    /// The seconds since the start, if it is time to draw.
    std::optional<double> Begin();

    Clock::time_point start_ = Clock::now();
    Clock::time_point next_; // not drawn again before
    bool isWanted_;
    bool isDrawn_ = false;
};

/// The line, of at most `width` characters.
std::string ProgressText(
    std::size_t done, std::size_t known, double seconds, std::size_t width, bool isColoured);

/// The same of decks, with their rate and the time that the rest will take.
std::string DecksText(std::size_t done, std::size_t all, double seconds, std::size_t width, bool isColoured);

} // namespace Veld::Quor::Tools
