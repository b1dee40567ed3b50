#pragma once

namespace Veld::Quor::Core::Keywords {

/// What a keyword does to the structure of a deck.
struct KeywordDeckRole {
    /// What a reader has to do on it.
    enum Enum : int {
        End = 0, ///< ends the input
        EndInclude = 1, ///< ends an included file
        Include = 2, ///< continues in another file
        Skip = 3, ///< starts a block that every simulator skips
        EndSkip = 4, ///< ends a skipped block
        Section = 5, ///< starts a section
        Ordinary = 6, ///< all others, the skip keywords of single simulators among them
    };
};

} // namespace Veld::Quor::Core::Keywords
