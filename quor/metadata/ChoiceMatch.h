#pragma once

#include <string>

namespace Veld::Quor::Core::Keywords {

/// What a text means among the words of a choice; see `IKeywordChoiceMD::Match`. A plain value: it refers to
/// nothing and may outlive the table of keywords.
struct ChoiceMatch {
    /// How the text was matched.
    enum class Kind {
        None, ///< no choice
        Word, ///< the word of the choice, in any case
        Alias, ///< a whole alias
        Abbreviation, ///< the start of the word or of an alias
        Deprecated, ///< as any of the three above, but a hidden alias was met
        Lax, ///< the word it agrees with furthest; only if `Service::UseLaxMatch()`
    };

    /// Of the choice; -1 if `kind` is `None`.
    int index = -1;
    /// `None` if and only if `index` is -1.
    Kind kind = Kind::None;
    /// For `Deprecated` the hidden alias, which may belong to another choice. Otherwise the alias that the
    /// text is or begins, and empty if there is none. In the case of the document.
    std::string alias;
    /// `IKeywordChoiceMD::GetIndex` logs a warning. True for `Deprecated` and `Lax`; for `Alias` and
    /// `Abbreviation` if the text is not as long as the word of the choice.
    bool needsWarning = false;

    /// Member by member.
    friend bool operator==(const ChoiceMatch& a, const ChoiceMatch& b)
    {
        return a.index == b.index && a.kind == b.kind && a.alias == b.alias
            && a.needsWarning == b.needsWarning;
    }
};

} // namespace Veld::Quor::Core::Keywords
