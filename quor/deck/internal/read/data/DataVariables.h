#pragma once

#include "quor/variables/IKeywordVariables.h"
#include "quor/variables/VariablesString.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Core::Decks {

/// The variables in the data of a keyword, by node. Points at the nodes, and dies with them.
class DataVariables : public Core::Keywords::IKeywordVariables {
public:
    DataVariables();
    ~DataVariables() override;
    DataVariables(const DataVariables&) = delete;
    DataVariables& operator=(const DataVariables&) = delete;

    /// The text stands for `count` elements of a list, or items of a record, from `first` on. Calls for one
    /// node come in rising order.
    void Add(const Core::Keywords::IKeywordData& node, int first, int count, const std::string& text);
    /// The text stands for the value of a key of a map.
    void Add(const Core::Keywords::IKeywordData& map, const std::string& key, const std::string& text);

    const Core::Keywords::IKeywordDataVariables* GetDataVariables(
        const Core::Keywords::IKeywordData& node) const override;
    /// Of one element or item; null if there is no variable in it.
    const std::string* Find(const Core::Keywords::IKeywordData& node, int index) const;
    /// All texts with variables at the node and below it, each with the item, element or key that it stands
    /// at; empty if there is none.
    std::string ListBelow(const Core::Keywords::IKeywordData& node) const;
    /// Of one key; null if there is no variable in its value.
    const std::string* Find(const Core::Keywords::IKeywordData& map, const std::string& key) const;

private:
    struct Node;
    std::unordered_map<const Core::Keywords::IKeywordData*, std::unique_ptr<Node>> nodes_;
};

} // namespace Veld::Quor::Core::Decks
