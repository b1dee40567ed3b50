// Defaults, limits and formats.

#include "quor/lint/internal/NumberText.h"
#include "quor/lint/internal/Rules.h"

#include <fmt/format.h>

#include <optional>

namespace Veld::Quor::Core::Lint {

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

/// Reports a value of <min>, <max> or <default> that the loader reads as something else.
void ReportNumber(
    const Attribute& attribute, const char* tag, Form form, const Number& number, const Reporter& reporter)
{
    if (number.isMark)
        reporter.Report(Code::NumberText, attribute.valueSpan,
            fmt::format("number {} of <{}> is read as no value", Quoted(attribute.value), tag),
            "write another number");
    else
        reporter.Report(Code::NumberText, attribute.valueSpan,
            fmt::format(
                "invalid number {} of <{}> is read as {}", Quoted(attribute.value), tag, number.value),
            IsInteger(form) ? "expected an integer" : "expected a number");
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
            fmt::format("invalid number {} of <{}> is ignored", Quoted(value->value), tag),
            "expected an integer");
    else
        ReportNumber(*value, tag, form, number, reporter);
    return std::nullopt;
}

Limits ReadLimits(const Element& scalar, Form form, const Reporter& reporter)
{
    const Limits limits{ReadLimit(scalar, "min", form, reporter), ReadLimit(scalar, "max", form, reporter)};
    if (limits.min && limits.max && *limits.min > *limits.max)
        reporter.Report(Code::CrossedLimits, FindLast(scalar, "max")->Find("val")->valueSpan,
            fmt::format("max {} is less than min {}", *limits.max, *limits.min));
    return limits;
}

constexpr int defaultLength = 8;

/// How many characters of a string count.
int ReadLengthLimit(const Element& scalar, const Reporter& reporter)
{
    const Element* const limit = FindLast(scalar, "lengthLimit");
    if (!limit)
        return defaultLength;
    const std::size_t begin = limit->text.find_first_not_of(" \t\r\n");
    const std::size_t end = limit->text.find_last_not_of(" \t\r\n");
    const std::string text = begin == std::string::npos ? "" : limit->text.substr(begin, end - begin + 1);
    const Number number = ReadInteger(text);
    if (!number.isClean || number.value < 1)
        reporter.Report(Code::NumberText, limit->span,
            fmt::format("invalid length limit {} is read as {}", Quoted(text), number.value),
            "expected an integer greater than 0");
    return static_cast<int>(number.value);
}

/// One default or override, of any type.
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
            reporter_.Report(Code::DefaultValue, span,
                "specified default without attribute 'val'; the load fails", "add attribute 'val'");
        else if (type == "calculated" && value)
            reporter_.Report(Code::DefaultValue, span,
                "calculated default with attribute 'val'; the load fails", "remove attribute 'val'");
        else if (type == "no default" && value)
            reporter_.Report(Code::IgnoredValue, span,
                "attribute 'val' is ignored because the type is 'no default'", "remove attribute 'val'");
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
            isLenient
                ? fmt::format(
                    "unknown type {} of a default is read as 'no default'", Quoted(element.Get("type")))
                : fmt::format("unknown type {} of a default; the load fails", Quoted(element.Get("type"))),
            hint.empty() ? fmt::format("expected {}", Listed(known)) : hint);
    }

    void ReportLine(const Element& element) const
    {
        reporter_.Report(Code::DefaultType, element.Find("type")->valueSpan,
            "type 'no default' is not allowed for a line; the load fails", "remove <default>");
    }

    void CheckText(const Attribute& value) const
    {
        if (IsNumber(form_))
            CheckNumber(value);
        else if (form_ == Form::Boolean && value.value != "YES" && value.value != "NO")
            reporter_.Report(Code::BooleanText, value.valueSpan,
                fmt::format("default {} is read as true", Quoted(value.value)), "expected YES or NO");
        else if (form_ == Form::String && static_cast<double>(value.value.size()) > lengthLimit_)
            reporter_.Report(Code::DefaultOutside, value.valueSpan,
                fmt::format(
                    "default {} is longer than its length limit {}", Quoted(value.value), lengthLimit_),
                "increase <lengthLimit>");
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
                fmt::format("default {} is less than min {}", number.value, *limits_.min));
        if (limits_.max && number.value > *limits_.max)
            reporter_.Report(Code::DefaultOutside, value.valueSpan,
                fmt::format("default {} is greater than max {}", number.value, *limits_.max));
    }

    Form form_;
    const Reporter& reporter_;
    Limits limits_;
    ChoiceWords words_;
    int lengthLimit_ = 0;
};

/// Only for choices: the main default replaces some overrides.
void CheckLostOverride(const std::string& mainType, const Element& override, const Reporter& reporter)
{
    const std::string& type = override.Get("type");
    const bool isSpecified = mainType == "specified" && type == "calculated";
    if (!isSpecified && !(mainType == "calculated" && type == "no default"))
        return;
    reporter.Report(Code::LostOverride, override.span,
        isSpecified
            ? fmt::format("override for {} has no effect; the specified default of the choice is used",
                Quoted(override.Get("name")))
            : fmt::format("override for {} has no effect; the calculated default of the choice is used",
                Quoted(override.Get("name"))),
        "write a specified default for the simulator, or remove the override");
}

void CheckOverride(const Element& override, const std::string& mainType, Form form, const Context& context,
    const Reporter& reporter)
{
    bool isKnown = false;
    const auto simulator = SimulatorType::FromString(override.Get("name"), &isKnown);
    if (isKnown && context.simulators.any() && !context.simulators[static_cast<std::size_t>(simulator)])
        reporter.Report(Code::OverrideElsewhere, override.Find("name")->valueSpan,
            fmt::format("override for {}, for which the keyword is not valid", Quoted(override.Get("name"))),
            "remove the override, or make the keyword valid for the simulator");
    if (form == Form::Choice)
        CheckLostOverride(mainType, override, reporter);
}

void CheckFormat(const Element& scalar, const Reporter& reporter)
{
    const Element* const format = FindLast(scalar, "format");
    if (format && IsBlank(format->text))
        reporter.Report(Code::BlankFormat, format->span, "blank format is ignored", "remove <format>");
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

} // namespace Veld::Quor::Core::Lint
