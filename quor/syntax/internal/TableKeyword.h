#pragma once

#include "quor/syntax/IKeywordSyntax.h"

#include <atomic>

namespace Veld::Quor::Core::Keywords {

/// Another number, from 1, for each table that the process may load: what was kept of one table is known by
/// it. A table that is cleared for good keeps its number, since none comes after it.
unsigned long TableNumber();

/// A keyword of the process's table: looked up when it is first asked for, and again once that table was
/// cleared. Threads may ask at once, as long as none clears.
class TableKeyword {
public:
    constexpr explicit TableKeyword(const char* name)
        : name_(name)
    {
    }

    /// Null if the document lacks the keyword. Throws what `KeywordSyntaxTable::Instance` throws.
    const IKeywordSyntax* Find();

private:
    const char* name_;
    std::atomic<const IKeywordSyntax*> syntax_{nullptr};
    std::atomic<unsigned long> table_{0}; // in which it was looked up; written after syntax_
};

} // namespace Veld::Quor::Core::Keywords
