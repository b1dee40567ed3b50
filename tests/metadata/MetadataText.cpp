#include "tests/metadata/MetadataText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <type_traits>

namespace Veld::Quor::Tests {

using namespace Core;
using namespace Core::Keywords;

namespace {

template <class T>
std::string Text(const T& value)
{
    const char* const quote = std::is_same_v<T, std::string> ? "'" : "";
    std::ostringstream text;
    text << std::boolalpha << quote << value << quote;
    return text.str();
}

/// `parts` with the separator between them.
std::string Joined(const std::vector<std::string>& parts, const std::string& separator)
{
    std::string all;
    for (const std::string& part : parts)
        all += (&part == parts.data() ? "" : separator) + part;
    return all;
}

template <class Test>
std::string SimulatorsWhere(Test test)
{
    std::vector<std::string> names;
    for (const auto& row : SimulatorType::EnumInfos()) {
        if (test(row.value))
            names.push_back(row.text);
    }
    return Joined(names, " ");
}

/// Each node by its own interface: what it says, and what its bases say of it.
class Writer {
public:
    static std::string Of(const IKeywordBooleanMD& boolean) { return Scalar(boolean); }
    static std::string Of(const IKeywordLineMD& line) { return Scalar(line); }
    static std::string Of(const IKeywordIntegerMD& integer) { return Numeric(integer); }
    static std::string Of(const IKeywordRealMD& real)
    {
        return If(" in ", real.GetMeasurement()) + Numeric(real);
    }
    static std::string Of(const IKeywordRawMD& raw) { return " " + Text(raw.GetTerminationString()); }
    static std::string Of(const IKeywordStringMD& string)
    {
        const int limit = string.LimitLengthTo();
        return (limit == 8 ? "" : " <=" + Text(limit)) + If(" case", string.IsCaseSensitive())
            + If(" comma", string.CanContainComma()) + Scalar(string);
    }
    static std::string Of(const IKeywordChoiceMD& choice)
    {
        const auto& choices = dynamic_cast<const KeywordChoiceMDImpl&>(choice).GetChoices();
        std::vector<std::string> words;
        for (int i = 0; i < choice.NumChoices(); ++i) {
            words.push_back(choice.GetChoice(i));
            for (const auto& [alias, hidden] : choices[static_cast<std::size_t>(i)].aliases.GetAliasList())
                words.back() += (hidden ? "|~" : "|") + alias;
            words.back() += Places(choice, i);
        }
        return "{" + Joined(words, ", ") + "}" + Scalar(choice);
    }
    static std::string Of(const IKeywordAssignmentMD& assignment)
    {
        return " keys(" + Joined(assignment.GetKeys(), "|") + ")" + If(" wildcard", assignment.IsWildcard())
            + InBrackets(" valid(", SimulatorsWhere([&](auto at) { return assignment.IsValid(at); }), "")
            + Limits(assignment) + Scalar(assignment);
    }
    static std::string Of(const IKeywordRecordMD& record)
    {
        const ISkippableInfo* const skippable = record.GetSkippableInfo();
        std::vector<std::string> items;
        for (int i = 0; i < record.GetSize(); ++i) {
            const auto index = static_cast<unsigned int>(i);
            const auto constraint = record.GetColumnConstraint(i);
            items.push_back(Dump(*record.GetItemMD(i)) + If(" optional", record.IsOptional(i))
                + If(" identifier", record.IsIdentifier(i)) + If(" ", constraint != 0)
                + IKeywordDataMD::ColumnConstraintType::ToString(constraint)
                + If(" skip-read", skippable && skippable->IsSkippableOnRead(index))
                + If(" skip-write", skippable && skippable->IsSkippableOnWrite(index)) + Places(record, i));
        }
        return Termination(record) + "{" + Joined(items, "; ") + "}";
    }
    static std::string Of(const IKeywordListMD& list)
    {
        return Termination(list) + If(" words", list.GetCustomReadTermination() != nullptr)
            + If(" size=", list.GetSize()) + If(" min=", list.GetMinSize()) + If(" max=", list.GetMaxSize())
            + If(" defaultable", list.IsItemDefaultable())
            + If(" fill", list.FillEmptyElementsWithPreviousValue())
            + If(" start=", list.WriteStartingOnNewLine()) + If(" end=", list.WriteTerminationOnNewLine())
            + "{" + (list.GetItemMD() ? Dump(*list.GetItemMD()) : "") + "}";
    }
    static std::string Of(const IKeywordMapMD& map)
    {
        std::vector<std::string> items;
        for (int i = 0; i < map.GetSize(); ++i)
            items.push_back(Dump(*map.GetItemMD(i)));
        for (int i = 0; i < map.GetWildcardSize(); ++i)
            items.push_back(Dump(*map.GetWildcardItemMD(i)));
        return Termination(map) + "{" + Joined(items, "; ") + "}";
    }

private:
    static std::string If(const char* name, bool holds) { return holds ? name : ""; }
    static std::string If(const char* name, const std::string* value) { return value ? name + *value : ""; }
    template <class T>
    static std::string If(const char* name, const Service::Optional<T>& value)
    {
        return value ? name + Text(*value) : "";
    }
    static std::string InBrackets(const char* name, const std::string& text, const std::string& without)
    {
        return text == without ? "" : name + text + ")";
    }
    template <class Item>
    static std::string DefaultOf(const Item& item, SimulatorType::Enum simulator, const std::string& name)
    {
        const bool specified = item.IsDefaultSpecified(simulator);
        const auto value = item.GetDefault(simulator);
        std::string text = value ? Text(*value) : specified ? "calculated" : "none";
        if (item.hasOverride(simulator))
            text += "!" + item.GetOverrideType(simulator);
        return text == "none" ? "" : " " + name + "=" + text;
    }
    template <class Item>
    static std::string Scalar(const Item& item)
    {
        std::string text = DefaultOf(item, SimulatorType::Any, "Any");
        for (const auto& row : SimulatorType::EnumInfos())
            text += DefaultOf(item, row.value, row.text);
        const std::string names = SimulatorsWhere([&](auto at) { return item.IsKeywordSupported(at); });
        return text + (names.empty() ? "" : " for " + names);
    }
    template <class Number>
    static std::string Limits(const Number& number)
    {
        const std::string limits = If("", number.GetMin()) + ".." + If("", number.GetMax());
        return limits == ".." ? "" : " [" + limits + "]";
    }
    template <class Number>
    static std::string Numeric(const Number& number)
    {
        const std::string* const format = number.GetFormatting();
        return Limits(number) + (format ? " as " + Text(*format) : "") + Scalar(number);
    }
    template <class Container>
    static std::string Places(const Container& of, int index)
    {
        return InBrackets(" valid(", Dump(of.GetValidity(index)), "everywhere")
            + InBrackets(" unsupported(", Dump(of.GetUnsupportedBy(index)), "nowhere");
    }
    template <class Container>
    static std::string Termination(const Container& container)
    {
        return " " + IKeywordDataMD::TerminationType::ToString(container.GetTermination());
    }
};

} // namespace

ParsedElement::ParsedElement(const std::string& xml)
{
    if (!document_.readMemory(xml.data(), xml.size(), "test"))
        throw std::runtime_error("malformed: " + xml);
}

std::string Indented(const std::string& xml)
{
    std::string indented;
    for (const char c : xml) {
        if (c == '<' && indented.ends_with('>'))
            indented += '\n';
        indented += c;
    }
    return indented;
}

std::string Dump(const IKeywordDataMD& md)
{
    static const char* const words[] = {"none", "assignment", "boolean", "choice", "integer", "line", "list",
        "map", "raw", "real", "record", "string"};
    return words[md.GetType()] + (md.GetItemNumber() ? "#" + std::to_string(md.GetItemNumber()) : "")
        + (md.GetName().empty() ? "" : " " + md.GetName())
        + (md.GetDescription().empty() ? "" : " \"" + md.GetDescription() + "\"")
        + VisitMD(md, [](const auto& node) { return Writer::Of(node); });
}

std::string SimulatorsAndModes(const ModeTest& test)
{
    std::vector<std::string> entries;
    std::size_t flags = 0;
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        std::string modes;
        for (const auto& mode : SimulatorModeType::EnumInfos())
            modes += test(simulator.value, mode.value) ? mode.text.substr(0, 1) : "";
        EXPECT_EQ(test(simulator.value, SimulatorModeType::Any), !modes.empty());
        flags += modes.size();
        if (!modes.empty())
            entries.push_back(simulator.text + "/" + modes);
    }
    return flags == 30 ? "everywhere" : entries.empty() ? "nowhere" : Joined(entries, " ");
}

std::string Dump(const IValidityMD& validity)
{
    return SimulatorsAndModes([&](auto simulator, auto mode) { return validity.IsValid(simulator, mode); });
}

std::string Dump(const IUnsupportedByMD& unsupportedBy)
{
    return SimulatorsAndModes(
        [&](auto simulator, auto mode) { return unsupportedBy.IsUnsupportedBy(simulator, mode); });
}

std::string DumpOf(const std::string& xml, const Simulators& simulators)
{
    return Dump(*Read<KeywordListMDImpl>("<list>" + xml + "</list>", simulators)->GetItemMD());
}

} // namespace Veld::Quor::Tests
