#include "tests/deck/SameDecks.h"

#include "quor/data/KeywordDataEqual.h"
#include "quor/syntax/IKeywordSyntax.h"

namespace Veld::Quor::Tests {

using Core::Decks::Deck;
using Core::Keywords::KeywordDataEqual;

testing::AssertionResult SayTheSame(const Deck& a, const Deck& b)
{
    if (a.GetSize() != b.GetSize())
        return testing::AssertionFailure() << a.GetSize() << " keywords, and " << b.GetSize();
    for (std::size_t i = 0; i < a.GetSize(); ++i) {
        const Core::Keywords::IKeywordData* const first = a[i].FindData();
        const Core::Keywords::IKeywordData* const second = b[i].FindData();
        if (&a[i].GetSyntax() != &b[i].GetSyntax() || !first != !second
            || (first && !KeywordDataEqual(*first, *second)))
            return testing::AssertionFailure() << "keyword " << i << ", " << a[i].GetName();
    }
    return testing::AssertionSuccess();
}

} // namespace Veld::Quor::Tests
