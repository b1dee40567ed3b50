#pragma once

#include "tools/deck/Codes.h"
#include "tools/deck/DeckFile.h"
#include "tools/deck/Finding.h"

#include <string>

namespace Veld::Quor::Tools::Deck {

/// Turns what is found at a spot of a deck into a finding.
class Teller {
public:
    Teller(const DeckFiles& files, Findings& findings)
        : files_(files)
        , findings_(findings)
    {
    }

    void Tell(const Spot& spot, Code code, std::string message, std::string hint = {});

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
    const DeckFiles& files_;
    Findings& findings_;
    bool isMuted_ = false;
};

} // namespace Veld::Quor::Tools::Deck
