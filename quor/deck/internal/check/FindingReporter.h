#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/Finding.h"
#include "quor/deck/FindingCodes.h"
#include "quor/deck/ReadOptions.h"
#include "quor/deck/internal/check/CodeChoices.h"
#include "quor/deck/internal/check/FindingCollector.h"
#include "quor/deck/internal/check/FindingVoice.h"
#include "quor/deck/internal/check/Suppressions.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Turns what is found at a range of a deck into a finding, unless it is to be hidden.
class FindingReporter {
public:
    /// `isKnown` may be empty: nothing is known. `isStrict`: findings of all strict codes are reported too.
    /// `ownCodes`: that rules have beside those of the library; they must outlive it.
    FindingReporter(const DeckFiles& files, Findings& findings, KnownFinding isKnown, bool isStrict,
        CodeChoices choices, const std::vector<std::string>& ownCodes)
        : files_(files)
        , findings_(findings)
        , isKnown_(std::move(isKnown))
        , choices_(std::move(choices))
        , ownCodes_(ownCodes)
        , isStrict_(isStrict)
        , seeksStrict_(isStrict || choices_.WantsStrict())
    {
    }

    /// Another range that a finding is about, and what is there.
    struct Related {
        TextRange range;
        std::string message;
    };

    /// `fix`: as the finding has it.
    void Report(const TextRange& range, Code code, std::string message, std::string hint = {},
        std::vector<TextEdit> fix = {}, const std::vector<Related>& related = {})
    {
        ReportAs({}, range, code, std::move(message), std::move(hint), std::move(fix), related);
    }
    /// The same as the author of a rule wants it.
    void ReportAs(const FindingVoice& voice, const TextRange& range, Code code, std::string message,
        std::string hint = {}, std::vector<TextEdit> fix = {}, const std::vector<Related>& related = {});
    /// The file is read up to `end`: reports what is wrong with the comments in it that suppress findings. A
    /// large file in which nothing was found is left alone: it would take as long as to read it.
    void ReportBadSuppressions(std::uint32_t file, std::size_t end = std::string::npos);

    /// The files whose findings are reported; empty: all.
    void SetReportedFile(ReportedFile isReported) { isReported_ = std::move(isReported); }
    /// Whether findings quote files outside the folder of the deck.
    void SetOutsideTextShown(bool isShown) { isOutsideTextShown_ = isShown; }

    /// An error that was reported already, in other words.
    void CountError() { errors_ += isMuted_ ? 0 : 1; }
    /// Errors met so far, hidden ones included.
    std::size_t GetErrorCount() const { return errors_; }

    /// Nothing is reported, nor counted, while one with `isMuted` lives.
    class Muted {
    public:
        Muted(FindingReporter& reporter, bool isMuted)
            : reporter_(reporter)
            , before_(reporter.isMuted_)
        {
            reporter.isMuted_ = reporter.isMuted_ || isMuted;
        }
        ~Muted() { reporter_.isMuted_ = before_; }
        Muted(const Muted&) = delete;
        Muted& operator=(const Muted&) = delete;

    private:
        FindingReporter& reporter_;
        bool before_;
    };

    /// Whether findings of strict codes may be reported; what leads to them needn't be looked for otherwise.
    bool IsStrict() const { return seeksStrict_; }
    /// Whether findings are only counted, so that no trouble need be taken over their texts.
    bool IsFull() const { return findings_.IsFull(); }

private:
    /// Of a file, and how many of their mistakes were reported.
    struct FileComments {
        FileComments(const SourceText& source, const std::vector<std::string>& ownCodes)
            : suppressions(source, ownCodes)
        {
        }
        Suppressions suppressions;
        std::size_t reported = 0;
    };

    bool IsReported(const TextRange& range, const std::vector<Related>& related) const;
    bool IsTextHidden(std::uint32_t file) const { return !isOutsideTextShown_ && files_.Get(file).isOutside; }
    /// Whether the file was included before: a change of it was suggested then.
    bool IsIncludedAgain(std::uint32_t file) const;
    /// Scans the file when it is first asked for, and reports what is wrong with its comments up to an
    /// offset.
    const Suppressions& ScanTo(std::uint32_t file, std::size_t end);

    const DeckFiles& files_;
    FindingCollector findings_;
    KnownFinding isKnown_;
    ReportedFile isReported_; // empty: all
    CodeChoices choices_;
    const std::vector<std::string>& ownCodes_;
    std::unordered_map<const SourceText*, FileComments> suppressions_;
    std::size_t errors_ = 0;
    bool isMuted_ = false;
    bool isStrict_;
    bool seeksStrict_;
    bool isOutsideTextShown_ = true;
};

} // namespace Veld::Quor::Core::Decks
