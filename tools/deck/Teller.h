#pragma once

#include "tools/deck/Codes.h"
#include "tools/deck/DeckFile.h"
#include "tools/deck/Finding.h"
#include "tools/deck/Silences.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>

namespace Veld::Quor::Tools::Deck {

/// Whether a finding is known already, so that it isn't told. Asked once for each that no comment silences.
using KnownFinding = std::function<bool(const DeckFiles& files, const Spot& spot, Code code)>;

/// Turns what is found at a spot of a deck into a finding, unless it is to be hidden.
class Teller {
public:
    /// `isKnown` may be empty: nothing is known.
    Teller(const DeckFiles& files, Findings& findings, KnownFinding isKnown = {})
        : files_(files)
        , findings_(findings)
        , isKnown_(std::move(isKnown))
    {
    }

    void Tell(const Spot& spot, Code code, std::string message, std::string hint = {});
    /// Tells the silencing comments that can't be followed, of files in which nothing was found. Large ones
    /// are left alone: it would take as long as to read them.
    void TellBadSilences();

    /// Errors met so far, hidden ones included.
    std::size_t GetErrorCount() const { return errors_; }

    /// Nothing is told, nor counted, while one with `isMuted` lives.
    class Muted {
    public:
        Muted(Teller& teller, bool isMuted)
            : teller_(teller)
            , before_(teller.isMuted_)
        {
            teller.isMuted_ = teller.isMuted_ || isMuted;
        }
        ~Muted() { teller_.isMuted_ = before_; }
        Muted(const Muted&) = delete;
        Muted& operator=(const Muted&) = delete;

    private:
        Teller& teller_;
        bool before_;
    };

    /// Whether findings are only counted, so that no trouble need be taken over their texts.
    bool IsFull() const { return findings_.IsFull(); }

private:
    /// Scans the file when it is first asked for, and tells what is wrong with its comments.
    const Silences& SilencesOf(std::uint32_t file);

    const DeckFiles& files_;
    Findings& findings_;
    KnownFinding isKnown_;
    std::unordered_map<const SourceText*, Silences> silences_;
    std::size_t errors_ = 0;
    bool isMuted_ = false;
};

} // namespace Veld::Quor::Tools::Deck
