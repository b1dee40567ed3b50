#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"
#include "quor/deck/internal/text/LanguageIndex.h"

#include <cstdint>

namespace Veld::Quor::Core::Decks {

/// Follows the scopes of a deck as it is read: keeps them with the deck, reports those that don't fit, and
/// opens and closes the sizes that hold within them.
class OpenScopes {
public:
    OpenScopes(
        const LanguageIndex& language, DeckContents& deck, Dimensions& dimensions, FindingReporter& reporter)
        : language_(language)
        , deck_(deck)
        , dimensions_(dimensions)
        , reporter_(reporter)
    {
    }

    /// The last keyword of the deck may end a scope, or open one. `mayMissKeywords`: one before it could not
    /// be made out, so that it may well end a scope that isn't known.
    void Follow(bool mayMissKeywords);
    /// A section ends, and with it all scopes. `isSure`: no keyword that may have closed them was missed.
    void CloseAll(bool isSure);

    /// The innermost one; `noIndex` if none is open.
    std::uint32_t GetInnermost() const { return innermost_; }

private:
    bool IsEndedBy(const KeywordInstance& keyword) const;
    const KeywordInstance& OpenerOfInnermost() const
    {
        return deck_.keywords[deck_.scopes[innermost_].opener];
    }
    void RemarkOpen();
    void Leave();

    const LanguageIndex& language_;
    DeckContents& deck_;
    Dimensions& dimensions_;
    FindingReporter& reporter_;
    std::uint32_t innermost_ = noIndex;
};

} // namespace Veld::Quor::Core::Decks
