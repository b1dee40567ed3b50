#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Exception.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordSyntax;
class KeywordSyntaxTable;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Core::Decks {

class LanguageIndex;

/// What a rule says of a keyword.
struct KeywordRule {
    std::string kind; ///< the element of the rule, as "index"; of names "defines" or "refers-to"
    std::string what; ///< the kind of the names, or the size or whatever else the rule is about; may be empty
    std::string item; ///< of the keyword; may be empty
    std::string text; ///< what holds: a part of a sentence, for people
};

/// What a keyword, or an item of it, is in the physics of a deck, as documents of rules say it.
struct KeywordRole {
    std::string role; ///< "porosity", "saturation of water": see `docs/writing-rules.md`
    std::string item; ///< empty: the keyword itself
};

/// A document of rules can't be read. The text has the document, the rule, and what was expected.
class VELD_QUOR_EXPORT RuleError : public Service::Exception {
public:
    /// `message`: a whole sentence.
    explicit RuleError(const std::string& message);
    RuleError(const RuleError&) = default;
    RuleError& operator=(const RuleError&) = default;
    ~RuleError() override;
};

/// What a table of keywords says of decks. It never changes: made once for a table, it serves any number of
/// threads that read decks at once. The table must outlive it, and it must outlive the decks read with it:
/// create another one after `KeywordSyntaxTable::Instance(true, ...)` and the next load.
class VELD_QUOR_EXPORT DeckLanguage {
public:
    /// Of the process's table, which is loaded if it isn't yet. Throws what the load throws.
    DeckLanguage();
    /// Of another table.
    explicit DeckLanguage(Keywords::KeywordSyntaxTable& table);
    /// The same, with the rules of these files beside those of the library. A file is an XML document: see
    /// `docs/writing-rules.md`. Throws `RuleError` for one that can't be read or has what is no rule.
    DeckLanguage(Keywords::KeywordSyntaxTable& table, const std::vector<std::string>& ruleFiles);
    ~DeckLanguage();
    DeckLanguage(const DeckLanguage&) = delete;
    DeckLanguage& operator=(const DeckLanguage&) = delete;

    /// The keywords that a misspelt name may stand for, the nearest first: at most three, those valid in
    /// `section` before others. `SectionType::None` prefers none.
    std::vector<std::string> FindNearest(
        const std::string& name, Keywords::SectionType::Enum section = Keywords::SectionType::None) const;

    /// What the rules say of a keyword of the table, each once.
    std::vector<KeywordRule> GetRules(const Keywords::IKeywordSyntax& syntax) const;
    /// The roles of a keyword of the table and of its items, in the order of the rules.
    std::vector<KeywordRole> GetRoles(const Keywords::IKeywordSyntax& syntax) const;
    /// The kinds of names that rules are about, as "well", in the order of the rules.
    std::vector<std::string> GetNameKinds() const;
    /// The codes of findings that rules have beside those of the library, each once.
    std::vector<std::string> GetOwnCodes() const;

private:
    friend class Deck;
    std::unique_ptr<const LanguageIndex> index_;
};

/// The same for words of any kind: those of `known` that a misspelt one may stand for, without regard to
/// case. The longer the word, the more mistakes it may have.
VELD_QUOR_EXPORT std::vector<std::string> FindNearest(
    const std::vector<std::string>& known, const std::string& word);

} // namespace Veld::Quor::Core::Decks
