#include "quor/syntax/internal/TableKeyword.h"

#include "quor/syntax/KeywordSyntaxTable.h"

namespace Veld::Quor::Core::Keywords {

const IKeywordSyntax* TableKeyword::Find()
{
    if (table_.load(std::memory_order_acquire) != TableNumber()) {
        // Threads that come here at once find, and store, the same.
        syntax_.store(
            KeywordSyntaxTable::Instance(false, true).Lookup(name_, true), std::memory_order_relaxed);
        table_.store(TableNumber(), std::memory_order_release);
    }
    return syntax_.load(std::memory_order_relaxed);
}

} // namespace Veld::Quor::Core::Keywords
