#pragma once

#include "quor/foundation/Export.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxLookupTable.h"

#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Visits all keywords of a look-up table, one stop for each syntax under each name: a keyword with aliases
/// comes once under each of its names. The order follows the tree of names and is not alphabetical, but is
/// the same each time. Must not outlive the table; not to be shared between threads. After the end, `Next`
/// starts again.
class VELD_QUOR_EXPORT KeywordSyntaxEnumerator {
public:
    /// Stands before the first stop.
    explicit KeywordSyntaxEnumerator(KeywordSyntaxLookupTable& table);
    /// A copy is at the same stop, and walks on independently. A moved-from one may only be destroyed or
    /// assigned to.
    /// @{
    KeywordSyntaxEnumerator(const KeywordSyntaxEnumerator& other);
    KeywordSyntaxEnumerator(KeywordSyntaxEnumerator&& other) noexcept;
    KeywordSyntaxEnumerator& operator=(const KeywordSyntaxEnumerator& other);
    KeywordSyntaxEnumerator& operator=(KeywordSyntaxEnumerator&& other) noexcept;
    /// @}
    ~KeywordSyntaxEnumerator();

    /// Moves to the next entry that is not hidden under the name it is reached by; false at the end.
    bool Next() { return NextX(false); }
    /// The same with hidden ones.
    bool NextWithHidden() { return NextX(true); }

    /// The name under which the entry was reached, and its syntax. Only after `Next` returned true. Never
    /// null; the object and the name are the enumerator's, and each `Next` overwrites them. The syntax is the
    /// table's.
    std::pair<const std::string*, IKeywordSyntax*>* Current() { return &current_; }

    /// Back to before the first stop.
    void Reset();

private:
    /// One level of the tree, partly visited.
    struct KeywordLocation;

    bool NextX(bool includeHidden);
    void AddLocation(const KeywordSyntaxLookupTable& table, std::string prefix);
    bool GetNext(bool includeHidden);
    bool GetNextRow();
    bool GetCurrentSyntax(bool includeHidden);

    const KeywordSyntaxLookupTable* table_;
    std::string currentName_;
    std::pair<const std::string*, IKeywordSyntax*> current_; // first: `currentName_`
    std::vector<KeywordLocation> locations_; // the level being visited, and above it those still to come
    std::size_t location_ = 0; // the level being visited
};

} // namespace Veld::Quor::Core::Keywords
