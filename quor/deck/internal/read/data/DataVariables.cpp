#include "quor/deck/internal/read/data/DataVariables.h"

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/data/VisitData.h"
#include "quor/foundation/internal/Once.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/variables/KeywordVariableUtils.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// A text that a repeat set in many places is kept once.
struct Range {
    int first;
    int count;
    VariablesString text;
};

/// For lists and records, which differ in nothing but the interface.
template <class Base>
class Indexed : public Base {
public:
    const std::vector<int>& GetIndices() const override
    {
        areIndicesMade_.Run([this] {
            std::vector<int> indices;
            for (const Range& range : ranges) {
                indices.resize(indices.size() + static_cast<std::size_t>(range.count));
                std::iota(indices.end() - range.count, indices.end(), range.first);
            }
            indices_ = std::move(indices);
        });
        return indices_;
    }
    const VariablesString& GetVariablesString(int index) const override { return FindRange(index)->text; }

    std::vector<Range>::const_iterator FindRange(int index) const
    {
        const auto after = std::upper_bound(ranges.begin(), ranges.end(), index,
            [](int wanted, const Range& range) { return wanted < range.first; });
        const bool isIn = after != ranges.begin() && index < after[-1].first + after[-1].count;
        return isIn ? after - 1 : ranges.end();
    }

    std::vector<Range> ranges;

private:
    // Made at the first call, which several threads may make at once.
    mutable Once areIndicesMade_;
    mutable std::vector<int> indices_;
};

class Keyed : public IKeywordMapDataVariables {
public:
    const std::vector<std::string>& GetKeys() const override { return keys; }
    const VariablesString& GetVariablesString(const std::string& key) const override { return texts.at(key); }

    std::vector<std::string> keys;
    std::map<std::string, VariablesString> texts;
};

/// Puts all texts after one another.
class Lister : public IVariableProcessor {
public:
    void Process(const IKeywordData& data, const IKeywordDataVariables& variables) override
    {
        VisitData(data,
            Overloaded{[&](const IKeywordListData&) {
                           AddIndexed(static_cast<const IKeywordListDataVariables&>(variables),
                               [](int index) { return fmt::format("[{}]", index + 1); });
                       },
                [&](const IKeywordRecordData& record) {
                    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
                    AddIndexed(static_cast<const IKeywordRecordDataVariables&>(variables),
                        [&md](int index) { return ItemName(*md.GetItemMD(index)); });
                },
                [&](const IKeywordMapData&) {
                    const auto& ofMap = static_cast<const IKeywordMapDataVariables&>(variables);
                    for (const std::string& key : ofMap.GetKeys())
                        Add(key, ofMap.GetVariablesString(key));
                },
                [](const IKeywordRawData&) {}});
    }

    std::string text;

private:
    template <class Variables, class NameOf>
    void AddIndexed(const Variables& variables, const NameOf& nameOf)
    {
        for (const int index : variables.GetIndices())
            Add(nameOf(index), variables.GetVariablesString(index));
    }
    void Add(const std::string& name, const VariablesString& value)
    {
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", name, value.GetString());
    }
};

} // namespace

struct DataVariables::Node {
    Indexed<IKeywordListDataVariables> ofList;
    Indexed<IKeywordRecordDataVariables> ofRecord;
    Keyed ofMap;
};

DataVariables::DataVariables() = default;
DataVariables::~DataVariables() = default;

void DataVariables::Add(const IKeywordData& node, int first, int count, const std::string& text)
{
    std::unique_ptr<Node>& entry = nodes_[&node];
    if (!entry)
        entry = std::make_unique<Node>();
    const bool isList = node.GetMD()->GetType() == IKeywordDataMD::MDType::List;
    std::vector<Range>& ranges = isList ? entry->ofList.ranges : entry->ofRecord.ranges;
    ranges.push_back({first, count, VariablesString(text)});
}

void DataVariables::Add(const IKeywordData& map, const std::string& key, const std::string& text)
{
    std::unique_ptr<Node>& entry = nodes_[&map];
    if (!entry)
        entry = std::make_unique<Node>();
    if (entry->ofMap.texts.insert_or_assign(key, VariablesString(text)).second)
        entry->ofMap.keys.push_back(key);
}

const IKeywordDataVariables* DataVariables::GetDataVariables(const IKeywordData& node) const
{
    const auto entry = nodes_.find(&node);
    if (entry == nodes_.end())
        return nullptr;
    const Node& found = *entry->second;
    if (!found.ofMap.keys.empty())
        return &found.ofMap;
    return found.ofList.ranges.empty() ? static_cast<const IKeywordDataVariables*>(&found.ofRecord)
                                       : &found.ofList;
}

const std::string* DataVariables::Find(const IKeywordData& node, int index) const
{
    const auto entry = nodes_.find(&node);
    if (entry == nodes_.end())
        return nullptr;
    const Node& found = *entry->second;
    if (const auto range = found.ofList.FindRange(index); range != found.ofList.ranges.end())
        return &range->text.GetString();
    if (const auto range = found.ofRecord.FindRange(index); range != found.ofRecord.ranges.end())
        return &range->text.GetString();
    return nullptr;
}

std::string DataVariables::ListBelow(const IKeywordData& node) const
{
    Lister lister;
    KeywordVariableUtils::ProcessVariables(node, *this, lister);
    return lister.text;
}

const std::string* DataVariables::Find(const IKeywordData& map, const std::string& key) const
{
    const auto entry = nodes_.find(&map);
    if (entry == nodes_.end())
        return nullptr;
    const auto text = entry->second->ofMap.texts.find(key);
    return text == entry->second->ofMap.texts.end() ? nullptr : &text->second.GetString();
}

} // namespace Veld::Quor::Core::Decks
