#pragma once

#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class KeywordSyntaxTable;
}

namespace Veld::Quor::Core::Decks {

/// The keywords and items of a table, which rules name. Each are looked up at the first question.
class RuleWords {
public:
    /// `table` must outlive it.
    explicit RuleWords(Keywords::KeywordSyntaxTable& table)
        : table_(table)
    {
    }

    const std::set<std::string>& GetKeywords();
    /// Those of records at any depth.
    const std::set<std::string>& GetItems();
    /// Adds the words of an item of the keyword. False if it has the item and any text may
    /// be in it.
    bool AddChoices(const std::string& keyword, const std::string& item, std::set<std::string>& words);
    /// '*' stands for any characters, '?' for one.
    std::vector<std::string> FindKeywords(const std::string& pattern);

private:
    const std::vector<std::string>& GetNames();

    Keywords::KeywordSyntaxTable& table_;
    std::vector<std::string> names_; // of keywords, once for each of one name
    std::set<std::string> keywords_;
    std::set<std::string> items_;
};

} // namespace Veld::Quor::Core::Decks
