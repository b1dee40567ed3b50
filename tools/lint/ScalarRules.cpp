// Defaults, limits and formats.

#include "tools/lint/NumberText.h"
#include "tools/lint/Rules.h"

#include <fmt/format.h>

#include <optional>

namespace Veld::Quor::Tools::Lint {

namespace {

bool IsInteger(Form form)
{
    return form == Form::Integer || form == Form::AssignedInteger;
}

bool IsNumber(Form form)
{
    return form == Form::Real || IsInteger(form);
}

Number ReadNumber(const std::string& text, Form form)
{
    return IsInteger(form) ? ReadInteger(text) : ReadReal(text);
}

void ReportNumber(
    const Attribute& attribute, const char* what, Form form, const Number& number, const Reporter& reporter)
{
    const char* const kind = IsInteger(form) ? "whole number" : "number";
    reporter.Report(Code::NumberText, attribute.valueSpan,
        fmt::format("the {} {} is no {} that can be used, and counts as {}", what, Quoted(attribute.value),
            kind, number.isMark ? "none" : fmt::format("{}", number.value)),
        fmt::format("write a {} and nothing else", kind));
}

/// The limits of a number, as the loader keeps them.
struct Limits {
    std::optional<double> min;
    std::optional<double> max;
};

std::optional<double> ReadLimit(const Element& scalar, const char* tag, Form form, const Reporter& reporter)
{
    const Element* const limit = FindLast(scalar, tag);
    const Attribute* const value = limit ? limit->Find("val") : nullptr;
    if (!value || value->value.empty())
        return std::nullopt;
    const Number number = ReadNumber(value->value, form);
    if (number.isClean)
        return number.value;
    if (IsInteger(form) && number.hasRest)
        reporter.Report(Code::NumberText, value->valueSpan,
            fmt::format("{} {} is no whole number, and is dropped", tag, Quoted(value->value)),
            "write a whole number and nothing else");
    else
        ReportNumber(*value, tag, form, number, reporter);
    return std::nullopt;
}

Limits ReadLimits(const Element& scalar, Form form, const Reporter& reporter)
{
    const Limits limits{ReadLimit(scalar, "min", form, reporter), ReadLimit(scalar, "max", form, reporter)};
    if (limits.min && limits.max && *limits.min > *limits.max)
        reporter.Report(Code::CrossedLimits, FindLast(scalar, "max")->Find("val")->valueSpan,
            fmt::format("max {} is below min {}: no value is allowed", *limits.max, *limits.min));
    return limits;
}

constexpr int usualLength = 8;

/// How many characters of a string count.
int ReadLengthLimit(const Element& scalar, const Reporter& reporter)
{
    const Element* const limit = FindLast(scalar, "lengthLimit");
    if (!limit)
        return usualLength;
    const std::size_t begin = limit->text.find_first_not_of(" \t\r\n");
    const std::size_t end = limit->text.find_last_not_of(" \t\r\n");
    const std::string text = begin == std::string::npos ? "" : limit->text.substr(begin, end - begin + 1);
    const Number number = ReadInteger(text);
    if (!number.isClean || number.value < 1)
        reporter.Report(Code::NumberText, limit->span,
            fmt::format("the length limit {} is no length, and counts as {}", Quoted(text), number.value),
            "write a whole number above 0");
    return static_cast<int>(number.value);
}

/// One default or override, of whatever type.
class DefaultCheck {
public:
    DefaultCheck(const Element& scalar, Form form, const Reporter& reporter)
        : form_(form)
        , reporter_(reporter)
    {
        if (IsNumber(form))
            limits_ = ReadLimits(scalar, form, reporter);
        if (form == Form::Choice)
            words_ = ReadChoiceWords(scalar);
        if (form == Form::String)
            lengthLimit_ = ReadLengthLimit(scalar, reporter);
    }

    void Check(const Element& element, bool isOverride) const
    {
        const std::string& type = element.Get("type");
        const Attribute* const value = element.Find("val");
        if (type != "specified" && type != "calculated" && type != "no default")
            return ReportType(element, isOverride);
        if (type == "no default" && form_ == Form::Line && !isOverride)
            return ReportLine(element);
        const Span span = value ? value->nameSpan : element.span;
        if (type == "specified" && !value)
            reporter_.Report(
                Code::DefaultValue, span, "a specified default has no val, and the load fails", "add val");
        else if (type == "calculated" && value)
            reporter_.Report(
                Code::DefaultValue, span, "a calculated default has a val, and the load fails", "remove val");
        else if (type == "no default" && value)
            reporter_.Report(
                Code::IgnoredValue, span, "the val is ignored, since there is no default", "remove val");
        else if (value)
            CheckText(*value);
    }

private:
    void ReportType(const Element& element, bool isOverride) const
    {
        const std::vector<std::string> known = {"specified", "calculated", "no default"};
        const Attribute* const type = element.Find("type");
        const bool isLenient = form_ == Form::Choice && !isOverride;
        const std::string hint = HintOfNearest(element.Get("type"), known);
        reporter_.Report(isLenient ? Code::ChoiceDefaultType : Code::DefaultType,
            type ? type->valueSpan : element.span,
            fmt::format("the type of a default is {}, not {}, and {}", Listed(known),
                Quoted(element.Get("type")), isLenient ? "there is no default" : "the load fails"),
            hint);
    }

    void ReportLine(const Element& element) const
    {
        reporter_.Report(Code::DefaultType, element.Find("type")->valueSpan,
            "a line can't say that it has no default, and the load fails", "remove <default>");
    }

    void CheckText(const Attribute& value) const
    {
        if (IsNumber(form_))
            CheckNumber(value);
        else if (form_ == Form::Boolean && value.value != "YES" && value.value != "NO")
            reporter_.Report(Code::BooleanText, value.valueSpan,
                fmt::format("the default {} counts as true, as all but \"NO\"", Quoted(value.value)),
                "write YES or NO");
        else if (form_ == Form::String && static_cast<double>(value.value.size()) > lengthLimit_)
            reporter_.Report(Code::DefaultOutside, value.valueSpan,
                fmt::format("the default {} has more than the {} characters that count", Quoted(value.value),
                    lengthLimit_),
                "raise <lengthLimit>");
        else if (form_ == Form::Choice)
            CheckDefaultChoice(words_, value, reporter_);
    }

    void CheckNumber(const Attribute& value) const
    {
        const Number number = ReadNumber(value.value, form_);
        if (!number.isClean)
            return ReportNumber(value, "default", form_, number, reporter_);
        if (limits_.min && number.value < *limits_.min)
            reporter_.Report(Code::DefaultOutside, value.valueSpan,
                fmt::format("the default {} is below min {}", number.value, *limits_.min));
        if (limits_.max && number.value > *limits_.max)
            reporter_.Report(Code::DefaultOutside, value.valueSpan,
                fmt::format("the default {} is above max {}", number.value, *limits_.max));
    }

    Form form_;
    const Reporter& reporter_;
    Limits limits_;
    ChoiceWords words_;
    int lengthLimit_ = 0;
};

/// Of choices alone: the main default is laid over some overrides in the end.
void CheckLostOverride(const std::string& mainType, const Element& override, const Reporter& reporter)
{
    const std::string& type = override.Get("type");
    const bool isSpecified = mainType == "specified" && type == "calculated";
    if (!isSpecified && !(mainType == "calculated" && type == "no default"))
        return;
    reporter.Report(Code::LostOverride, override.span,
        fmt::format("the default for {} stays {}, whatever the override says", override.Get("name"),
            isSpecified ? "the specified one of the choice" : "a calculated one"),
        "give the simulator a specified default, or none of its own");
}

void CheckOverride(const Element& override, const std::string& mainType, Form form, const Context& context,
    const Reporter& reporter)
{
    bool isKnown = false;
    const auto simulator = SimulatorType::FromString(override.Get("name"), &isKnown);
    if (isKnown && context.simulators.any() && !context.simulators[static_cast<std::size_t>(simulator)])
        reporter.Report(Code::OverrideElsewhere, override.Find("name")->valueSpan,
            fmt::format("the override is for {}, which the keyword isn't valid for", override.Get("name")),
            "remove it, or let the keyword be valid for the simulator");
    if (form == Form::Choice)
        CheckLostOverride(mainType, override, reporter);
}

void CheckFormat(const Element& scalar, const Reporter& reporter)
{
    const Element* const format = FindLast(scalar, "format");
    if (format && IsBlank(format->text))
        reporter.Report(
            Code::BlankFormat, format->span, "the format is blank, and counts as none", "remove it");
}

} // namespace

void CheckScalar(const Element& scalar, Form form, const Context& context, const Reporter& reporter)
{
    if (form != Form::AssignedInteger && !context.isDescribed && !IsDescribed(scalar))
        reporter.Report(Code::NoDescription, scalar.span,
            fmt::format("{} has no description", Tagged(scalar.tag)),
            "add a <description> to the type element");
    if (IsNumber(form))
        CheckFormat(scalar, reporter);
    const DefaultCheck check(scalar, form, reporter);
    for (const Element& element : scalar.children) {
        if (element.tag != "default")
            continue;
        check.Check(element, false);
        for (const Element& override : element.children) {
            if (override.tag != "override")
                continue;
            check.Check(override, true);
            CheckOverride(override, element.Get("type"), form, context, reporter);
        }
    }
}

} // namespace Veld::Quor::Tools::Lint
