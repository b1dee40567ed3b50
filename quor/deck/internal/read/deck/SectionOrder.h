#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/Target.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/text/Vocabulary.h"
#include "quor/foundation/SectionType.h"

#include <array>
#include <cstddef>
#include <optional>

namespace Veld::Quor::Core::Decks {

/// Follows the sections of a deck as it is read, and reports what is out of order. Where a section's line is
/// missing, the keywords show which section it is.
class SectionOrder {
public:
    SectionOrder(const Target& target, const DeckFiles& files, FindingReporter& reporter)
        : target_(target)
        , files_(files)
        , reporter_(reporter)
    {
    }

    /// The text begins within the section.
    void StartIn(Core::Keywords::SectionType::Enum section) { current_ = headed_ = section; }
    /// `name`: of the keyword that begins the section.
    void Enter(Core::Keywords::SectionType::Enum section, const TextRange& name, const Entry& entry);
    /// Whether the keyword may be where it is; reports if not.
    bool Accept(const TextRange& name, const Entry& entry);
    /// An inclusion that can't be read may have gone on to another section.
    void Lose() { isSure_ = false; }

    /// The last section that began, or that is assumed; `SectionType::None` before the first.
    Core::Keywords::SectionType::Enum GetCurrent() const { return current_; }
    bool IsSure() const { return isSure_; }
    /// `SectionType::None` if it isn't known.
    Core::Keywords::SectionType::Enum GetSure() const
    {
        return isSure_ ? current_ : Core::Keywords::SectionType::None;
    }
    /// Different sections that began.
    std::size_t GetCount() const;

private:
    bool AssumeFirst(const TextRange& name, const Entry& entry);
    bool AssumeMissing(const Entry& entry);

    using Section = Core::Keywords::SectionType;

    Target target_;
    const DeckFiles& files_;
    FindingReporter& reporter_;
    Section::Enum current_ = Section::None;
    Section::Enum headed_ = Section::None; // whose line was read last; `current_` may be assumed
    Section::Enum expected_ = Section::None; // of the keyword that was reported to be in a wrong one
    Section::Enum furthest_ = Section::None;
    bool isSure_ = true;
    bool isMissingReported_ = false;
    std::array<std::optional<TextRange>, Section::Count> ranges_;
};

} // namespace Veld::Quor::Core::Decks
