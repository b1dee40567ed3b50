#pragma once

#include "quor/deck/internal/rules/RuleWords.h"

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Where rules come from.
struct RuleOrigin {
    std::string document; ///< for messages
    RuleWords& words; ///< what they may name
    bool isChecked; ///< what they name must be there: a rule that names nothing would never report
};

/// An element of a document with all that is below it.
struct RuleNode {
    std::string tag;
    std::vector<std::pair<std::string, std::string>> attributes; ///< names and values
    std::vector<RuleNode> children;
};

/// Why an element is no rule.
struct RuleFailure {
    std::vector<std::size_t> path; ///< of the element, by its number among its siblings, from 0
    std::string attribute; ///< that is wrong; empty: the element itself
    std::string place; ///< "element 1, <once>"
    std::string reason; ///< one sentence, without a full stop
    std::string hint; ///< what to write instead; may be empty
};

/// An element of a document of rules, with its attributes. What is asked for is marked, so that what nobody
/// asked for can be refused. What fails throws a `RuleFailure`.
class RuleElement {
public:
    /// The root of a document. `node` and `origin` must outlive it.
    RuleElement(const RuleNode& node, const RuleOrigin& origin);

    const std::string& GetTag() const { return node_.tag; }
    /// `attribute`: that is wrong; empty: the element itself.
    [[noreturn]] void Fail(
        const std::string& reason, const std::string& attribute = {}, const std::string& hint = {}) const;

    /// Empty if there is no such attribute.
    std::string Find(const char* attribute);
    /// Fails if there is no such attribute, or it is empty.
    std::string Get(const char* attribute);
    /// The words of an attribute.
    /// @{
    std::vector<std::string> FindWords(const char* attribute);
    std::vector<std::string> GetWords(const char* attribute);
    /// @}
    /// The same for names of keywords, with those that a pattern matches in its place.
    /// @{
    std::vector<std::string> FindKeywords(const char* attribute);
    std::vector<std::string> GetKeywords(const char* attribute);
    /// @}
    /// The same for names of items.
    /// @{
    std::string FindItem(const char* attribute);
    std::string GetItem(const char* attribute);
    std::vector<std::string> FindItems(const char* attribute);
    std::vector<std::string> GetItems(const char* attribute);
    /// @}
    bool IsFlagged(const char* attribute);
    double GetNumber(const char* attribute);

    /// Refuses a word that isn't among the known ones. `what`: "keyword"; `attribute`: that has it.
    void Check(const char* what, const std::string& word, const std::set<std::string>& known,
        const char* attribute) const;
    /// Refuses an item that the language doesn't have.
    void CheckItem(const std::string& item, const char* attribute) const;
    /// Refuses a word that none of the keywords has as a choice of the item. Without keywords nothing is
    /// known.
    void CheckChoice(const std::vector<std::string>& keywords, const std::string& item,
        const std::string& word, const char* attribute) const;
    /// Refuses attributes that no rule of this kind has.
    void CheckAllAsked() const;

    /// Calls `use` with each child element, in the order of the document.
    void ForEachChild(const std::function<void(RuleElement)>& use) const;

private:
    [[noreturn]] void Refuse(const std::string& attribute, const std::vector<std::string>& near) const;
    void AddPlace(RuleFailure& failure) const;

    const RuleNode& node_;
    const RuleOrigin& origin_;
    const RuleElement* around_ = nullptr; // null: it is the root
    std::size_t number_ = 0; // among the children of that
    std::vector<bool> isAsked_; // of each attribute of the node
    std::vector<const char*> asked_; // also those that it lacks
};

} // namespace Veld::Quor::Core::Decks
