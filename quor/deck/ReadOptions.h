#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/Finding.h"
#include "quor/deck/FindingCodes.h"
#include "quor/deck/Target.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Exception.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace Veld::Quor::Core::Decks {

struct ReadSettings;

/// Called about once for each MiB and at the end with how many bytes of the deck were read, and of how many
/// that are known so far. The second number grows as the deck includes files. What is after END is not read.
using ReadProgress = std::function<void(std::size_t done, std::size_t known)>;

/// Called at each keyword, for each MiB of a long one, and for each 2^20 values of a long repeat; once it
/// returns true the read ends with `ReadCancelled`.
using ReadCancellation = std::function<bool()>;

/// Whether a finding is known already, so that it isn't reported. Called once for each finding that no
/// comment of the deck suppresses.
using KnownFinding = std::function<bool(const DeckFiles& files, const TextRange& range, Code code)>;

/// Whether findings in a file of the deck are to be reported. Called for each finding, and for the other
/// locations that it is about.
using ReportedFile = std::function<bool(const DeckFile& file)>;

/// The host cancelled the read of a deck.
class VELD_QUOR_EXPORT ReadCancelled : public Service::Exception {
public:
    ReadCancelled();
    ReadCancelled(const ReadCancelled&) = default;
    ReadCancelled& operator=(const ReadCancelled&) = default;
    ~ReadCancelled() override;
};

/// How a deck is read. Functions are called by the thread that reads, which throws what they throw. Setters
/// return the object itself: keep a chain of them as a value, not as a reference. An object that was moved
/// from may be assigned to and destroyed; all else throws `std::logic_error`.
///
///     const auto options = ReadOptions().SetSimulator(SimulatorType::Carrow).SetVariable("CASE", "1");
class VELD_QUOR_EXPORT ReadOptions {
public:
    ReadOptions();
    ~ReadOptions();
    ReadOptions(const ReadOptions&);
    ReadOptions& operator=(const ReadOptions&);
    ReadOptions(ReadOptions&&) noexcept;
    ReadOptions& operator=(ReadOptions&&) noexcept;

    /// Where the deck is to run. Without it, what is valid for any simulator and mode is accepted.
    ReadOptions& SetTarget(const Target& target);
    /// The simulator of the target alone.
    ReadOptions& SetSimulator(Keywords::SimulatorType::Enum simulator);
    /// The mode of the target alone.
    ReadOptions& SetMode(Keywords::SimulatorModeType::Enum mode);
    /// The text that replaces the variable `$NAME` in the deck. `name` may begin with the "$". Throws
    /// `std::invalid_argument` if it is no name of a variable.
    ReadOptions& SetVariable(const std::string& name, const std::string& value);
    /// How many findings are kept; others are counted. 200 at first.
    ReadOptions& SetMaxFindings(std::size_t count);
    /// How many values the repeat counts (`1000*0.2`, `1000*`) of one keyword make at most, and of a deck 20
    /// times as many, both beyond 100 for each byte of its files up to there: 50 million at first. A number
    /// takes 8 bytes, so a keyword fills up to 400 MB and a deck up to 8 GB; a value that is no number counts
    /// as four. A host with less memory sets less. A word that would make more is a finding
    /// (`too-many-values`), and makes none of them. A deck of a larger grid whose arrays are repeats needs
    /// more.
    ReadOptions& SetMaxRepeatedValues(std::size_t count);
    /// Where the files of the deck come from; null, as at first: the files of the system.
    ReadOptions& SetSource(std::shared_ptr<const DeckSource> source);
    /// A function that is called while the deck is read. None at first.
    /// @{
    ReadOptions& SetProgress(ReadProgress progress);
    ReadOptions& SetCancellation(ReadCancellation cancellation);
    ReadOptions& SetKnownFinding(KnownFinding isKnown);
    /// @}
    /// Whether the deck remembers where each value is in its text, so that a `DeckEditor` can change it.
    /// Needs 24 bytes of memory for each value. False at first.
    ReadOptions& SetEditable(bool isEditable);

    /// Whether what simulators accept and a tidy deck doesn't have is reported too: the codes that are marked
    /// strict. False at first.
    ReadOptions& SetStrict(bool isStrict);
    /// Reports the findings of a code with this severity, whatever their own is; if it is empty, not at all.
    /// A strict code with a severity is reported. Codes of rules are codes too; one that nothing has is
    /// ignored.
    ReadOptions& SetSeverity(const std::string& code, std::optional<Severity> severity);
    /// Once codes are selected, findings of others are not reported. A strict code that is selected is
    /// reported.
    ReadOptions& SelectCode(const std::string& code);

    /// The folder that `$NAME` is in the names of included files, unless PATHS of the deck says otherwise.
    /// `name` may begin with the "$". Throws `std::invalid_argument` if it is no name, or a "$" is in `path`.
    ReadOptions& SetPathAlias(const std::string& name, const std::string& path);

    /// Whether only files below the folder of the deck are read, wherever links lead: another is reported
    /// like one that is missing, whether it is there or not. For decks of strangers. False at first.
    ReadOptions& SetConfined(bool isConfined);
    /// Whether findings quote files outside the folder of the deck (`DeckFile::isOutside`). If not, a finding
    /// in one has no excerpt and no fix, and dots for what its message and its hint quote. A deck of a
    /// stranger can't have the files of a user printed then. True at first.
    ReadOptions& SetOutsideTextShown(bool isShown);

    /// Reads a file that a deck includes as if it was the deck: what it says is in `section`, and what may be
    /// before and after it isn't missed: sizes, names, dates, keywords. `SectionType::None`, as at first: the
    /// text is a whole deck.
    ReadOptions& SetSection(Keywords::SectionType::Enum section);
    /// Reports the findings of some files of the deck alone, those included that are about them at another
    /// location. Others are not counted. Empty, as at first: those of all files.
    ReadOptions& SetReportedFile(ReportedFile isReported);

    // What was set. References are valid as long as the options.

    /// `Any` for what was not set.
    const Target& GetTarget() const;
    /// By name, with the "$".
    const std::map<std::string, std::string>& GetVariables() const;
    /// How many findings are kept.
    std::size_t GetMaxFindings() const;
    /// How many values the repeat counts of one keyword make at most.
    std::size_t GetMaxRepeatedValues() const;
    /// Null: the files of the system.
    const std::shared_ptr<const DeckSource>& GetSource() const;
    /// Whether the deck remembers where each value is.
    bool IsEditable() const;
    /// Whether strict codes are reported too.
    bool IsStrict() const;
    /// Whether only files below the folder of the deck are read.
    bool IsConfined() const;
    /// Whether findings quote files outside the folder of the deck.
    bool IsOutsideTextShown() const;
    /// The section that the text is a part of; `SectionType::None`: it is a whole deck.
    Keywords::SectionType::Enum GetSection() const;

private:
    friend class Deck;
    ReadSettings& GetSettings() const; // throws if it was moved from

    std::unique_ptr<ReadSettings> settings_; // null if it was moved from
};

} // namespace Veld::Quor::Core::Decks
