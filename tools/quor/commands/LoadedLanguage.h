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

    /// Loads the table, with own documents beside those of the language. Throws what the load throws; the
    /// library's own print on standard output is kept away.
    explicit LoadedLanguage(const std::vector<std::string>& documents = {});

    /// Loads again with other documents: what was made of the table before is gone.
    void Load(const std::vector<std::string>& documents);
    /// Why a load with these documents would fail because of one of them; empty if none has an error.
    static std::string ErrorIn(const std::vector<std::string>& documents);

    Core::Keywords::KeywordSyntaxTable& GetTable() { return *table_; }
    const std::vector<std::string>& GetDocuments() const { return documents_; }
    std::chrono::milliseconds GetLoadTime() const { return loadTime_; }

    /// Each syntax once, by name, and those of one name in the order of their first sections. Without
    /// `withHidden` those whose own name is visible.
    Syntaxes GetSyntaxes(bool withHidden);

    /// Where the documents come from.
    static std::string GetOrigin();

private:
    std::vector<std::string> documents_;
    Core::Keywords::KeywordSyntaxTable* table_ = nullptr; // the process's
    std::chrono::milliseconds loadTime_{};
};

} // namespace Veld::Quor::Tools
