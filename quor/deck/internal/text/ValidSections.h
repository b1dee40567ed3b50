#pragma once

#include "quor/deck/Target.h"
#include "quor/foundation/SectionType.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A set of sections.
class SectionSet {
public:
    void Add(Core::Keywords::SectionType::Enum section) { bits_ |= BitOf(section); }
    bool IsEmpty() const { return bits_ == 0; }
    bool HasAll() const { return GetSize() == Core::Keywords::SectionType::Count; }
    /// Whether the section is in the set; for `SectionType::None`, whether any is.
    bool Allows(Core::Keywords::SectionType::Enum section) const
    {
        return section == Core::Keywords::SectionType::None ? !IsEmpty() : (bits_ & BitOf(section)) != 0;
    }
    /// The section of a set of one; else `SectionType::None`.
    Core::Keywords::SectionType::Enum GetOnly() const
    {
        return GetSize() == 1 ? static_cast<Core::Keywords::SectionType::Enum>(std::countr_zero(bits_))
                              : Core::Keywords::SectionType::None;
    }

private:
    static std::uint32_t BitOf(Core::Keywords::SectionType::Enum section) { return 1U << section; }
    int GetSize() const { return std::popcount(bits_); }

    std::uint32_t bits_ = 0;
};

/// The sections in which a name is valid; with several definitions, those in which any of them is.
struct ValidSections {
    SectionSet ofTarget; ///< for the simulator in its mode
    SectionSet ofSimulator; ///< in any mode
    SectionSet ofAny; ///< for any simulator
};

SectionSet FindValidSections(const std::vector<const Core::Keywords::IKeywordSyntax*>& syntaxes,
    const std::string& spelling, const Target& target);

} // namespace Veld::Quor::Core::Decks
