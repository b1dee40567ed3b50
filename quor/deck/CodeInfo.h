#pragma once

#include "quor/deck/Finding.h"
#include "quor/deck/Target.h"

namespace Veld::Quor::Core::Decks {

/// All that is known of a code of findings, of a deck or of a syntax document. The texts are valid as long as
/// the library. Later versions may add members at the end.
struct CodeInfo {
    const char* name; ///< stable, for programs to use
    Severity severity; ///< of its findings
    const char* meaning; ///< one sentence
    const char* remedy; ///< how to fix its findings; one or two sentences
    /// The text of a deck that has one finding, with this code; empty if one file can't show it. Of a
    /// document: a keyword or what is in it, without the descriptions.
    const char* wrong;
    const char* right; ///< the same, fixed
    Target target = {}; ///< for which the decks are
    bool isStrict = false; ///< reported only if asked for: simulators accept what it reports
    const char* source = ""; ///< where the literature explains the reason; empty if the language gives it
};

} // namespace Veld::Quor::Core::Decks
