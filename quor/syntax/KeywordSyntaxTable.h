#pragma once

#include "quor/foundation/Export.h"
#include "quor/syntax/IKeywordSyntaxTable.h"
#include "quor/syntax/KeywordSyntaxEnumerator.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class KeywordSyntaxTableImpl;

/// The process-wide table of all keywords.
///
/// The documents come from the files that two environment variables name, or are built in where a variable is
/// unset or empty: `QUOR_KEYWORD_SYNTAX_FILE`, the main document, and `QUOR_KEYWORD_TRUSTED_SYNTAX_DIR`, a
/// directory of `.xml` files with the trusted keywords.
///
/// The library has no locks: make the first `Instance()` before threads start, and clear only when nobody
/// looks up.
class VELD_QUOR_EXPORT KeywordSyntaxTable : public IKeywordSyntaxTable {
public:
    /// The table, loaded at the first call. A load that fails throws, leaves no table, and is tried again by
    /// the next call. A failure to find or read a document is also printed on standard output.
    ///
    /// With `clear` the table, if any, is dropped, and with it every `IKeywordSyntax` and metadata object; do
    /// not use what is returned then. With `permanently` as well, no table can be made again: `Instance()`
    /// throws `std::runtime_error`. Without, the next call loads again.
    static KeywordSyntaxTable& Instance(bool clear = false, bool permanently = true);

    /// The files of documents that the next load reads beside those of the language; none at first. Their
    /// keywords are looked up before others of their names, those of later documents before those of earlier
    /// ones. A load fails if a file is missing, is no document, or has no keyword.
    static void SetOwnDocuments(std::vector<std::string> files);
    /// What was set last.
    static const std::vector<std::string>& GetOwnDocuments();

    ~KeywordSyntaxTable() override;

    const IKeywordSyntax* Lookup(
        const std::string& name, SectionType::Enum section, bool acceptSingle) const override;
    const IKeywordSyntax* Lookup(const std::string& name, bool wildcards) const override;
    std::vector<const IKeywordSyntax*> LookupAll(const std::string& name) override;

    /// A new enumerator over all keywords.
    KeywordSyntaxEnumerator KeywordsEnumerator();

private:
    explicit KeywordSyntaxTable(std::unique_ptr<KeywordSyntaxTableImpl> impl);
    static KeywordSyntaxTable& Unusable();

    std::unique_ptr<KeywordSyntaxTableImpl> impl_;
};

} // namespace Veld::Quor::Core::Keywords
