#pragma once

#include "quor/deck/TextRange.h"
#include "quor/foundation/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// How serious a finding is. A note is about something that is no mistake: a deck that only has notes is
/// clean.
enum class Severity { Error, Warning, Note };

/// "error", "warning", "note"
VELD_QUOR_EXPORT const char* ToString(Severity severity);

/// Another location that a finding is about.
struct RelatedLocation {
    Location location; ///< where `range` begins
    std::string message; ///< what is there; part of a sentence
    TextRange range = {}; ///< the same bytes among the files of the deck
};

/// One thing that is wrong, or worth a note. It owns its values: valid without the deck. Later versions may
/// add members.
struct Finding {
    std::string code; ///< stable, for programs to use
    Severity severity = Severity::Error; ///< how serious it is
    Location location; ///< where `range` begins
    std::size_t length = 0; ///< bytes from the location on that the finding is about; may be 0
    std::string message; ///< one sentence, without a full stop
    std::string hint; ///< how to fix it; may be empty
    std::vector<Location> includedFrom; ///< innermost inclusion first; empty in the main file
    std::string excerpt; ///< the part of the line around the location
    std::size_t excerptColumn = 1; ///< column of the first byte of `excerpt`
    TextRange range = {}; ///< the same bytes among the files of the deck; of a document, nothing
    /// Changes to be made together, after which the deck says what the reader made of it; empty if the fix
    /// isn't certain.
    std::vector<TextEdit> fix = {};
    std::vector<RelatedLocation> related = {}; ///< such as the limit that a number exceeds; may be empty
    std::size_t more = 0; ///< how many others are like it: see `Findings::Fold`
};

/// "and 1,999 more like it"; empty if there are no others like it.
VELD_QUOR_EXPORT std::string MoreText(const Finding& finding);

/// "file:line:column: severity: message; hint [code]", one line, as compilers print it, with `MoreText` after
/// the message. The texts of the deck in it are as they are, control characters included.
VELD_QUOR_EXPORT std::string ToString(const Finding& finding);

/// Why a finding isn't reported. Comments of a deck suppress findings of the codes that they name, or of all
/// codes if they name none. A second `--` begins a remark in them:
///
///     OILL -- quor: off unknown-keyword      on this line
///     -- quor: off bad-date, date-order      on the next line that is more than a comment
///     -- quor: begin-off wrong-size          from here on, in this file
///     -- quor: end-off wrong-size -- later   up to here
///
/// A comment that is none of these, or names an unknown code, has a finding `bad-suppression`.
enum class Hiding {
    Suppressed, ///< a comment of the deck says so
    Known, ///< whoever asked for the findings has it already
};

class FindingCollector;

/// The findings of a deck or of documents: the first ones up to a limit are kept, all are counted. Hidden
/// ones are counted for themselves, and as no others.
class VELD_QUOR_EXPORT Findings {
public:
    ~Findings();
    Findings(const Findings&);
    Findings& operator=(const Findings&);
    Findings(Findings&&) noexcept;
    Findings& operator=(Findings&&) noexcept;

    /// In the order in which they were met. A temporary returns a copy.
    /// @{
    const std::vector<Finding>& GetKept() const& { return kept_; }
    std::vector<Finding> GetKept() const&& { return kept_; }
    /// @}
    /// Over those that are kept.
    /// @{
    std::vector<Finding>::const_iterator begin() const { return kept_.begin(); }
    std::vector<Finding>::const_iterator end() const { return kept_.end(); }
    /// @}
    /// Of all, kept or not.
    std::size_t GetCount(Severity severity) const;
    /// How many are counted and not kept.
    std::size_t GetOmittedCount() const { return omitted_; }
    /// How many findings aren't reported, for this reason.
    std::size_t GetHiddenCount(Hiding why) const { return hidden_[static_cast<std::size_t>(why)]; }
    /// Whether there are no errors and no warnings; notes may be there.
    bool IsClean() const;

    /// The same, but of those in a file that have the same code and message, numbers aside, only the first is
    /// kept and counts the others, also those that weren't kept here. Keeps `limit` of them; the counts by
    /// severity are as before.
    Findings Fold(std::size_t limit) const;

private:
    friend class FindingCollector;
    explicit Findings(std::size_t limit);

    std::size_t limit_;
    std::size_t omitted_ = 0;
    std::size_t counts_[3] = {};
    std::size_t hidden_[2] = {};
    std::vector<Finding> kept_;
    std::unordered_map<std::uint64_t, std::size_t> omittedLike_; // those that are kept, by kind
};

} // namespace Veld::Quor::Core::Decks
