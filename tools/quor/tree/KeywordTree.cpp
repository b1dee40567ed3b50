#include "tools/quor/tree/KeywordTree.h"

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordLineMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/ISkippableInfo.h"
#include "quor/metadata/KeywordChoiceMDImpl.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/KeywordSyntaxUtils.h"

#include <set>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

constexpr std::uint8_t allModes = (1U << SimulatorModeType::Count) - 1;

/// `holds` tells of one simulator and mode.
template <class Holds>
ModeTable MakeModeTable(Holds holds)
{
    ModeTable table{};
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        for (const auto& mode : SimulatorModeType::EnumInfos()) {
            if (holds(simulator.value, mode.value))
                table[simulator.value] |= static_cast<std::uint8_t>(1U << mode.value);
        }
    }
    return table;
}

bool IsValidSomewhere(
    const IKeywordSyntax& syntax, SimulatorType::Enum simulator, SimulatorModeType::Enum mode)
{
    for (const SectionType::Enum section : syntax.GetValidSections()) {
        if (KeywordSyntaxUtils::IsValid(syntax, syntax.GetName(), section, simulator, mode))
            return true;
    }
    return false;
}

std::optional<std::string> Copy(const std::string* text)
{
    return text ? std::optional(*text) : std::nullopt;
}

template <class T>
std::optional<Value> ToValue(const Core::Service::Optional<T>& value)
{
    return value ? std::optional<Value>(*value) : std::nullopt;
}

std::optional<bool> ToFlag(const Core::Service::Optional<bool>& value)
{
    return value ? std::optional(*value) : std::nullopt;
}

class TreeBuilder {
public:
    explicit TreeBuilder(const IKeywordSyntax& syntax)
        : syntax_(syntax)
        , valid_(MakeModeTable([&syntax](SimulatorType::Enum simulator, SimulatorModeType::Enum mode) {
            return IsValidSomewhere(syntax, simulator, mode);
        }))
    {
    }

    const ModeTable& GetValid() const { return valid_; }
    Node Build(const IKeywordDataMD& md) const;

private:
    void Fill(Node& node, const IKeywordDataMD& md) const;
    void FillScalar(Node& node, const IKeywordIntegerMD& md) const;
    void FillScalar(Node& node, const IKeywordRealMD& md) const;
    void FillScalar(Node& node, const IKeywordChoiceMD& md) const;
    void FillScalar(Node& node, const IKeywordStringMD& md) const;
    void FillAssignment(Node& node, const IKeywordAssignmentMD& md) const;
    void FillRecord(Node& node, const IKeywordRecordMD& md) const;
    void FillList(Node& node, const IKeywordListMD& md) const;
    void FillMap(Node& node, const IKeywordMapMD& md) const;

    /// `toValue` turns what the metadata give as a default into what the user writes.
    template <class MD, class ToText>
    Defaults MakeDefaults(const MD& md, ToText toValue) const;
    template <class MD>
    Defaults MakeDefaults(const MD& md) const
    {
        return MakeDefaults(md, [](const auto& value) { return Value(value); });
    }
    std::vector<std::string> FindEndWords(const ICustomReadTermination& termination) const;

    const IKeywordSyntax& syntax_;
    ModeTable valid_;
};

Node TreeBuilder::Build(const IKeywordDataMD& md) const
{
    Node node;
    node.type = md.GetType();
    node.name = md.GetName();
    node.number = md.GetItemNumber();
    node.description = md.GetDescription();
    Fill(node, md);
    return node;
}

void TreeBuilder::Fill(Node& node, const IKeywordDataMD& md) const
{
    switch (node.type) {
    case MDType::Assignment:
        return FillAssignment(node, static_cast<const IKeywordAssignmentMD&>(md));
    case MDType::Boolean:
        node.scalar.emplace().defaults = MakeDefaults(static_cast<const IKeywordBooleanMD&>(md));
        return;
    case MDType::Choice:
        return FillScalar(node, static_cast<const IKeywordChoiceMD&>(md));
    case MDType::Integer:
        return FillScalar(node, static_cast<const IKeywordIntegerMD&>(md));
    case MDType::Line:
        node.scalar.emplace().defaults = MakeDefaults(static_cast<const IKeywordLineMD&>(md));
        return;
    case MDType::List:
        return FillList(node, static_cast<const IKeywordListMD&>(md));
    case MDType::Map:
        return FillMap(node, static_cast<const IKeywordMapMD&>(md));
    case MDType::Raw:
        node.rawEnd = static_cast<const IKeywordRawMD&>(md).GetTerminationString();
        return;
    case MDType::Real:
        return FillScalar(node, static_cast<const IKeywordRealMD&>(md));
    case MDType::Record:
        return FillRecord(node, static_cast<const IKeywordRecordMD&>(md));
    case MDType::String:
        return FillScalar(node, static_cast<const IKeywordStringMD&>(md));
    case MDType::None:
        break;
    }
}

void TreeBuilder::FillScalar(Node& node, const IKeywordIntegerMD& md) const
{
    node.scalar = ScalarValue{
        MakeDefaults(md), ToValue(md.GetMin()), ToValue(md.GetMax()), {}, Copy(md.GetFormatting()), {}, {}};
}

void TreeBuilder::FillScalar(Node& node, const IKeywordRealMD& md) const
{
    node.scalar = ScalarValue{MakeDefaults(md), ToValue(md.GetMin()), ToValue(md.GetMax()),
        Copy(md.GetMeasurement()), Copy(md.GetFormatting()), {}, {}};
}

void TreeBuilder::FillScalar(Node& node, const IKeywordChoiceMD& md) const
{
    ScalarValue& scalar = node.scalar.emplace();
    scalar.defaults = MakeDefaults(md, [&md](int index) {
        return index >= 0 && index < md.NumChoices() ? Value(md.GetChoice(index)) : Value();
    });
    // The interface doesn't tell aliases.
    const auto* const own = dynamic_cast<const KeywordChoiceMDImpl*>(&md);
    for (int i = 0; i < md.NumChoices(); ++i) {
        Choice& choice = scalar.choices.emplace_back();
        choice.text = md.GetChoice(i);
        if (own)
            choice.aliases = own->GetChoices()[static_cast<std::size_t>(i)].aliases.GetAliasList();
        choice.valid =
            MakeModeTable([&validity = md.GetValidity(i)](SimulatorType::Enum simulator,
                              SimulatorModeType::Enum mode) { return validity.IsValid(simulator, mode); });
        choice.unsupported = MakeModeTable(
            [&unsupportedBy = md.GetUnsupportedBy(i)](SimulatorType::Enum simulator,
                SimulatorModeType::Enum mode) { return unsupportedBy.IsUnsupportedBy(simulator, mode); });
    }
}

void TreeBuilder::FillScalar(Node& node, const IKeywordStringMD& md) const
{
    ScalarValue& scalar = node.scalar.emplace();
    scalar.defaults = MakeDefaults(md);
    scalar.string = {md.IsCaseSensitive(), md.LimitLengthTo(), md.CanContainComma()};
}

void TreeBuilder::FillAssignment(Node& node, const IKeywordAssignmentMD& md) const
{
    node.scalar = ScalarValue{MakeDefaults(md), ToValue(md.GetMin()), ToValue(md.GetMax()), {}, {}, {}, {}};
    const ModeTable valid = MakeModeTable(
        [&md](SimulatorType::Enum simulator, SimulatorModeType::Enum) { return md.IsValid(simulator); });
    node.key = {md.GetKeys(), md.IsWildcard(), valid};
}

void TreeBuilder::FillRecord(Node& node, const IKeywordRecordMD& md) const
{
    node.ending = {md.GetTermination(), false, {}};
    const ISkippableInfo* const skippable = md.GetSkippableInfo();
    for (int i = 0; i < md.GetSize(); ++i) {
        Node& item = node.children.emplace_back(Build(*md.GetItemMD(i)));
        const auto index = static_cast<unsigned>(i);
        item.location = {md.IsOptional(i), md.IsIdentifier(i),
            skippable && skippable->IsSkippableOnRead(index),
            skippable && skippable->IsSkippableOnWrite(index), md.GetColumnConstraint(i),
            MakeModeTable([&validity = md.GetValidity(i)](SimulatorType::Enum simulator,
                              SimulatorModeType::Enum mode) { return validity.IsValid(simulator, mode); }),
            MakeModeTable([&unsupportedBy = md.GetUnsupportedBy(i)](
                              SimulatorType::Enum simulator, SimulatorModeType::Enum mode) {
                return unsupportedBy.IsUnsupportedBy(simulator, mode);
            })};
    }
}

void TreeBuilder::FillList(Node& node, const IKeywordListMD& md) const
{
    node.list = {Copy(md.GetSize()), Copy(md.GetMinSize()), Copy(md.GetMaxSize()), md.IsItemDefaultable(),
        md.FillEmptyElementsWithPreviousValue(), ToFlag(md.WriteStartingOnNewLine()),
        ToFlag(md.WriteTerminationOnNewLine())};
    node.ending = {md.GetTermination(), false, {}};
    if (const ICustomReadTermination* own = md.GetCustomReadTermination()) {
        node.ending->hasOwnWords = true;
        node.ending->words = FindEndWords(*own);
    }
    if (const IKeywordDataMD* item = md.GetItemMD())
        node.children.push_back(Build(*item));
}

void TreeBuilder::FillMap(Node& node, const IKeywordMapMD& md) const
{
    node.ending = {md.GetTermination(), false, {}};
    for (int i = 0; i < md.GetSize(); ++i)
        node.children.push_back(Build(*md.GetItemMD(i)));
    for (int i = 0; i < md.GetWildcardSize(); ++i)
        node.children.push_back(Build(*md.GetWildcardItemMD(i)));
}

template <class MD, class ToText>
Defaults TreeBuilder::MakeDefaults(const MD& md, ToText toValue) const
{
    const auto make = [&](SimulatorType::Enum simulator) {
        if (!md.IsDefaultSpecified(simulator))
            return Default{};
        const auto value = md.GetDefault(simulator);
        return value ? Default{Default::Type::Specified, toValue(*value)}
                     : Default{Default::Type::Calculated, {}};
    };
    Defaults defaults;
    defaults.keyword = make(SimulatorType::Any);
    for (const auto& row : SimulatorType::EnumInfos()) {
        const bool isOfKeyword = valid_[row.value] != 0;
        if (isOfKeyword || md.hasOverride(row.value))
            defaults.simulators.push_back(
                {row.value, isOfKeyword, make(row.value), md.GetOverrideType(row.value)});
    }
    return defaults;
}

/// A termination answers for a word, but doesn't list its own: those are tried that a list is likely to end
/// with.
std::vector<std::string> TreeBuilder::FindEndWords(const ICustomReadTermination& termination) const
{
    constexpr std::size_t longestName = 8;
    const std::string end = "END" + syntax_.GetName();
    std::vector<std::string> likely = {"/", "//", "END", end};
    if (end.size() > longestName)
        likely.push_back(end.substr(0, longestName));
    for (const IKeywordSyntax* scopeEnd : syntax_.GetScopeKeywords())
        likely.push_back(scopeEnd->GetName());
    std::vector<std::string> words;
    std::set<std::string> tried;
    for (const std::string& word : likely) {
        bool flag = false; // of no interest here
        if (tried.insert(word).second && termination.Matches(word, flag))
            words.push_back(word);
    }
    return words;
}

void CollectMeasurements(const Node& node, std::set<std::string>& measurements)
{
    if (node.scalar && node.scalar->measurement)
        measurements.insert(*node.scalar->measurement);
    for (const Node& child : node.children)
        CollectMeasurements(child, measurements);
}

} // namespace

ModeTable AllModes()
{
    ModeTable table;
    table.fill(allModes);
    return table;
}

KeywordTree BuildTree(const IKeywordSyntax& syntax)
{
    const TreeBuilder builder(syntax);
    KeywordTree tree{std::nullopt, builder.GetValid()};
    if (const IKeywordDataMD* md = syntax.GetDataMD())
        tree.data = builder.Build(*md);
    return tree;
}

std::vector<std::string> MeasurementsOf(const KeywordTree& tree)
{
    std::set<std::string> measurements;
    if (tree.data)
        CollectMeasurements(*tree.data, measurements);
    return {measurements.begin(), measurements.end()};
}

const char* TypeWord(MDType::Enum type)
{
    switch (type) {
    case MDType::Assignment:
        return "assignment";
    case MDType::Boolean:
        return "boolean";
    case MDType::Choice:
        return "choice";
    case MDType::Integer:
        return "integer";
    case MDType::Line:
        return "line";
    case MDType::List:
        return "list";
    case MDType::Map:
        return "map";
    case MDType::Raw:
        return "raw";
    case MDType::Real:
        return "real";
    case MDType::Record:
        return "record";
    case MDType::String:
        return "string";
    case MDType::None:
        break;
    }
    return "none";
}

MDType::Enum ValueTypeOf(const IKeywordSyntax& syntax)
{
    const IKeywordDataMD* const data = syntax.GetDataMD();
    const MDType::Enum type = KeywordUtils::GetMDType(data);
    return type == MDType::List
        ? KeywordUtils::GetMDType(static_cast<const IKeywordListMD*>(data)->GetItemMD())
        : type;
}

} // namespace Veld::Quor::Tools
