#include "tests/tools/SameDecks.h"

#include "quor/data/KeywordDataEqual.h"

namespace Veld::Quor::Tests {

using Core::Decks::Deck;
using Core::Decks::DeckKeyword;
using Core::Keywords::KeywordDataEqual;

testing::AssertionResult SayTheSame(const Deck& a, const Deck& b)
{
    if (a.keywords.size() != b.keywords.size())
        return testing::AssertionFailure() << a.keywords.size() << " keywords, and " << b.keywords.size();
    for (std::size_t i = 0; i < a.keywords.size(); ++i) {
        const DeckKeyword& first = a.keywords[i];
        const DeckKeyword& second = b.keywords[i];
        if (first.syntax != second.syntax || !first.data != !second.data
            || (first.data && !KeywordDataEqual(*first.data, *second.data)))
            return testing::AssertionFailure() << "keyword " << i << ", " << first.syntax->GetName();
    }
    return testing::AssertionSuccess();
}

} // namespace Veld::Quor::Tests
