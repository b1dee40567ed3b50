#include "tests/data/DataText.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

using namespace Veld::Quor::Tests;

TEST(VariablesString, FindsVariables)
{
    struct Sample {
        std::string text;
        std::vector<std::string> variables;
        bool contains;
    };
    for (const Sample& row :
        {Sample{"", {}, false}, {"text -- more", {}, false}, {"$A$B", {"$A", "$B"}, true},
            {"$A\t$B\n$C.$D*$E\\$F/$A", {"$A", "$B", "$C", "$D", "$E", "$F", "$A"}, true},
            {"x$A.y", {"$A"}, true}, {"'$A' \"$B\"", {"$A'", "$B\""}, true}, {"a $", {}, true},
            {"$ A$/B", {}, true}, {"$$A", {"$A"}, true}, {"-- $A", {}, false}, {"-- $A\n$B", {"$B"}, true},
            {"-- $A\r$B", {"$B"}, true}, {"$A -- $B", {"$A"}, true}, {"--- $A", {}, false},
            {"- - $A -x- $B", {"$A", "$B"}, true}, {"-\n- $A", {"$A"}, true}, {"$A--B", {"$A--B"}, true},
            {"$A--B $C", {"$A--B", "$C"}, true}, {"$--A $B", {"$--A", "$B"}, true},
            {"$A\r\n$B", {"$A\r", "$B"}, true}}) {
        const VariablesString string(row.text);
        EXPECT_EQ(string.GetVariables(), row.variables) << row.text;
        EXPECT_EQ(string.GetVariables(), row.variables) << "once more";
        EXPECT_EQ(VariablesString::ContainsVariables(row.text), row.contains) << row.text;
    }
}

TEST(VariablesString, IsReplacedByAssignment)
{
    VariablesString string("$A");
    string.GetVariables();
    string = VariablesString("$B");
    EXPECT_EQ(string.GetVariables(), std::vector<std::string>{"$B"});
}

namespace {

template <class Base>
class Indexed : public Base {
public:
    explicit Indexed(const std::map<int, std::string>& texts)
    {
        for (const auto& [index, text] : texts) {
            indices_.push_back(index);
            texts_.emplace(index, text);
        }
    }
    const std::vector<int>& GetIndices() const override { return indices_; }
    const VariablesString& GetVariablesString(int index) const override { return texts_.at(index); }

private:
    std::vector<int> indices_;
    std::map<int, VariablesString> texts_;
};

class Keyed : public IKeywordMapDataVariables {
public:
    explicit Keyed(const std::map<std::string, std::string>& texts)
    {
        for (const auto& [key, text] : texts) {
            keys_.push_back(key);
            texts_.emplace(key, text);
        }
    }
    const std::vector<std::string>& GetKeys() const override { return keys_; }
    const VariablesString& GetVariablesString(const std::string& key) const override
    {
        return texts_.at(key);
    }

private:
    std::vector<std::string> keys_;
    std::map<std::string, VariablesString> texts_;
};

/// Which nodes of the tests' data have variables.
class Attached : public IKeywordVariables {
public:
    void List(const IKeywordData& data, const std::map<int, std::string>& texts = {})
    {
        all_[&data] = std::make_unique<Indexed<IKeywordListDataVariables>>(texts);
    }
    void Record(const IKeywordData& data, const std::map<int, std::string>& texts = {})
    {
        all_[&data] = std::make_unique<Indexed<IKeywordRecordDataVariables>>(texts);
    }
    void Map(const IKeywordData& data, const std::map<std::string, std::string>& texts = {})
    {
        all_[&data] = std::make_unique<Keyed>(texts);
    }
    const IKeywordDataVariables* GetDataVariables(const IKeywordData& data) const override
    {
        const auto at = all_.find(&data);
        return at == all_.end() ? nullptr : at->second.get();
    }

private:
    std::map<const IKeywordData*, std::unique_ptr<IKeywordDataVariables>> all_;
};

/// The nodes that were handed over, in order.
struct Recorder : IVariableProcessor {
    std::vector<const IKeywordData*> nodes;
    void Process(const IKeywordData& data, const IKeywordDataVariables&) override { nodes.push_back(&data); }
};

std::vector<const IKeywordData*> NodesOf(const IKeywordData& data, const IKeywordVariables& variables)
{
    Recorder recorder;
    KeywordVariableUtils::ProcessVariables(data, variables, recorder);
    return recorder.nodes;
}

using Nodes = std::vector<const IKeywordData*>;

} // namespace

TEST(VariableWalk, LooksIntoARecordWithVariables)
{
    const Made made("(i (i) [i] {A} w)", "(1 (2) [3] {A=4} \"\")");
    Attached attached;
    EXPECT_EQ(NodesOf(*made.data, attached), Nodes());
    attached.Record(*made.data);
    Nodes expected{made.data.get()};
    attached.Record(At(*made.data, 1));
    attached.List(At(*made.data, 2));
    attached.Map(At(*made.data, 3));
    attached.List(At(*made.data, 4)); // raw text is passed over
    for (std::size_t i = 1; i < 4; ++i)
        expected.push_back(&At(*made.data, i));
    EXPECT_EQ(NodesOf(*made.data, attached), expected);
}

TEST(VariableWalk, DoesNotLookIntoAListWithVariables)
{
    const Made made("[[(i {A})]]", "[[(1 {}) (2 {})] [(3 {})]]");
    IKeywordData& first = At(*made.data, 0);
    IKeywordData& second = At(*made.data, 1);
    Attached attached;
    attached.Map(At(At(first, 1), 1));
    attached.Record(At(second, 0));
    EXPECT_EQ(NodesOf(*made.data, attached), (Nodes{&At(At(first, 1), 1), &At(second, 0)}));
    attached.List(first);
    EXPECT_EQ(NodesOf(*made.data, attached), (Nodes{&first, &At(second, 0)}));
    attached.List(*made.data);
    EXPECT_EQ(NodesOf(*made.data, attached), Nodes{made.data.get()});
}

TEST(VariableCollection, PairsVariablesWithMetadata)
{
    const Made made("(s i [r] {A/B C B D*})", "(- - [1 2] {})");
    const auto& md = dynamic_cast<const IKeywordRecordMD&>(*made.keyword.GetDataMD());
    const auto& mapMD = dynamic_cast<const IKeywordMapMD&>(*md.GetItemMD(3));
    Attached attached;
    attached.Record(*made.data, {{0, "$X $X/$Y"}, {1, "$X -- $Z"}});
    attached.List(At(*made.data, 2), {{0, "$L"}, {1, "$L $"}});
    attached.Map(At(*made.data, 3), {{"B", "$B"}, {"C", "$C"}, {"a", "$lower"}, {"D1", "$wild"}});
    KeywordDataMDProcessor processor;
    for (int round = 0; round < 2; ++round)
        KeywordVariableUtils::ProcessVariables(*made.data, attached, processor);

    std::map<std::pair<std::string, const IKeywordDataMD*>, int> found;
    for (const auto& item : processor.GetData())
        ++found[{item.VariableName(), item.MD()}];
    const std::map<std::pair<std::string, const IKeywordDataMD*>, int> expected{{{"$X", md.GetItemMD(0)}, 1},
        {{"$Y", md.GetItemMD(0)}, 1}, {{"$X", md.GetItemMD(1)}, 1},
        {{"$L", dynamic_cast<const IKeywordListMD&>(*md.GetItemMD(2)).GetItemMD()}, 1},
        {{"$B", mapMD.GetItemMD(0)}, 1}, {{"$C", mapMD.GetItemMD(1)}, 1}};
    EXPECT_EQ(found, expected);
}

TEST(VariableItem, IsOrderedByNameThenMetadata)
{
    using Item = KeywordDataMDProcessor::Item;
    const KeywordStringMDImpl md[2];
    EXPECT_TRUE(Item("$A", &md[1]) < Item("$B", &md[0]));
    EXPECT_TRUE(Item("$B", &md[1]) < Item("$a", &md[0])) << "by bytes";
    EXPECT_TRUE(Item("$A", &md[0]) < Item("$A", &md[1]));
    EXPECT_FALSE(Item("$A", &md[0]) < Item("$A", &md[0]));
}
