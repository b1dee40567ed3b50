#pragma once

#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <chrono>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// The language that the program answers from.
class LoadedLanguage {
public:
    using Syntaxes = std::vector<const Core::Keywords::IKeywordSyntax*>;

    /// Loads the table. Throws what the load throws; the library's own print on standard output is kept away.
    LoadedLanguage();

    Core::Keywords::KeywordSyntaxTable& GetTable() { return table_; }
    std::chrono::milliseconds GetLoadTime() const { return loadTime_; }

    /// Each syntax once, by name, and those of one name in the order of their first sections. Without
    /// `withHidden` those whose own name is visible.
    Syntaxes GetSyntaxes(bool withHidden);

    /// Where the documents come from.
    static std::string GetOrigin();

private:
    std::chrono::steady_clock::time_point start_; // first, so that the load falls behind it
    Core::Keywords::KeywordSyntaxTable& table_;
    std::chrono::milliseconds loadTime_;
};

} // namespace Veld::Quor::Tools
