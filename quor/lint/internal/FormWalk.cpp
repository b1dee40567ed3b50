#include "quor/lint/internal/FormWalk.h"

#include "quor/lint/internal/FormHints.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <unordered_set>
#include <utility>

namespace Veld::Quor::Core::Lint {

namespace {

/// The message for a text that is not a value of an enumeration, and what the loader does with it.
struct WordsRule {
    Words words;
    Code code;
    const char* message;
};

constexpr WordsRule wordsRules[] = {
    {Words::Flag, Code::FlagText, "unknown flag {} is read as false"},
    {Words::Simulator, Code::UnknownSimulator, "unknown simulator {} is read as Carrow"},
    {Words::OverrideSimulator, Code::UnknownOverride, "unknown simulator {} of an override; the load fails"},
    {Words::Mode, Code::UnknownMode, "unknown mode {} is read as BlackOil"},
    {Words::Section, Code::UnknownSection, "unknown section {} is read as RUNSPEC"},
    {Words::Termination, Code::UnknownTermination, "unknown termination {}; the load fails"},
    {Words::Constraint, Code::UnknownConstraint, "unknown column constraint {}; the load fails"},
    {Words::Category, Code::UnknownCategory, "unknown category {}; the load fails"},
};

/// True if the words are an enumeration.
bool CheckEnumeration(Words words, const std::string& text, const Span& span, const Reporter& reporter)
{
    const auto* const rule = std::find_if(std::begin(wordsRules), std::end(wordsRules),
        [&](const WordsRule& row) { return row.words == words; });
    if (rule == std::end(wordsRules))
        return false;
    const auto& known = TextsOf(words);
    if (std::find(known.begin(), known.end(), text) != known.end())
        return true;
    std::string hint = HintOfNearest(text, known);
    if (hint.empty())
        hint = fmt::format("expected {}", Listed(known));
    reporter.Report(rule->code, span, fmt::format(fmt::runtime(rule->message), Quoted(text)), hint);
    return true;
}

void CheckText(const Attribute& attribute, Words words, const Reporter& reporter)
{
    const std::string& text = attribute.value;
    if (CheckEnumeration(words, text, attribute.valueSpan, reporter))
        return;
    const bool hasLower = text.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string::npos;
    if (words == Words::Upper && hasLower)
        reporter.Report(Code::LowerCase, attribute.valueSpan,
            fmt::format("{} never matches because words of a deck are converted to upper case", Quoted(text)),
            "write it in upper case");
    if (words == Words::SupportLevel && text != "ignored" && !HintOfNearest(text, {"ignored"}).empty())
        reporter.Report(Code::SupportLevel, attribute.valueSpan,
            fmt::format("unknown support level {}; the simulator counts as supported", Quoted(text)),
            "did you mean 'ignored'?");
}

void CheckMissing(const Element& element, const AttributeForm& attribute, const Reporter& reporter)
{
    const Attribute* const given = element.Find(attribute.name);
    if (given && !given->value.empty())
        return;
    // For an enumeration, an empty text is already reported with the texts.
    if (!given && CheckEnumeration(attribute.words, "", element.span, reporter))
        return;
    if (!given || TextsOf(attribute.words).empty())
        reporter.Report(Code::MissingAttribute, given ? given->nameSpan : element.span,
            given ? fmt::format("attribute '{}' of {} is empty", attribute.name, Tagged(element.tag))
                  : fmt::format("{} has no attribute '{}'", Tagged(element.tag), attribute.name),
            fmt::format("write {}=\"...\"", attribute.name));
}

void CheckAttributes(const Element& element, const ElementForm& form, const Reporter& reporter)
{
    for (const Attribute& attribute : element.attributes) {
        if (const AttributeForm* const known = form.FindAttribute(attribute.name)) {
            CheckText(attribute, known->words, reporter);
            continue;
        }
        reporter.Report(Code::IgnoredAttribute, attribute.nameSpan,
            fmt::format("unknown attribute {} of {} is ignored", Quoted(attribute.name), Tagged(element.tag)),
            reporter.IsFull() ? "" : HintOfAttribute(attribute.name, form));
    }
    for (const AttributeForm& attribute : form.attributes) {
        if (attribute.isRequired)
            CheckMissing(element, attribute, reporter);
    }
}

bool HasTypes(const ElementForm& form)
{
    return std::any_of(
        form.children.begin(), form.children.end(), [](const ChildForm& child) { return child.isType; });
}

/// Checks the children of one element, in order, against its form.
class ChildrenCheck {
public:
    ChildrenCheck(
        const Element& element, const ElementForm& form, const Context& context, const Reporter& reporter)
        : element_(element)
        , form_(form)
        , context_(context)
        , reporter_(reporter)
        , hasTypes_(HasTypes(form))
    {
        context_.isDescribed = form.form == Form::List && IsDescribed(element);
        const Attribute* const termination = element.Find("termination");
        isEnded_ = (form.form == Form::Item || form.form == Form::Record) && context.isEnded;
        if (form.form == Form::Record) {
            isEnded_ = isEnded_ || (termination && termination->value != "NONE");
            lastItem_ = FindLast(element, "item");
        }
    }

    void Check()
    {
        for (const Element& child : element_.children) {
            if (const ChildForm* const known = form_.FindChild(child.tag))
                CheckKnown(child, *known);
            else
                CheckUnknown(child);
        }
        if (form_.form == Form::Item && !type_)
            reporter_.Report(Code::MissingType, element_.span, "the item has no type; the load fails",
                "add <real>, <integer>, <string>, <choice>, <boolean>, <line>, <list> or <record>");
        else if (!hasContent_ && form_.empty)
            reporter_.Report(Code::EmptyElement, element_.span, form_.empty);
    }

private:
    void CheckKnown(const Element& child, const ChildForm& known)
    {
        hasContent_ =
            hasContent_ || (hasTypes_ ? known.isType : child.tag != "description" && child.tag != "default");
        if (known.isOdd && child.position % 2 == 0) {
            reporter_.Report(Code::PassedOver, child.span,
                fmt::format("{} is ignored because no white space is directly before it", Tagged(child.tag)),
                "put it, and each comment, on a separate line");
            return;
        }
        const Element*& earlier = known.isType ? type_ : first_[known.tag];
        const bool isDuplicate = earlier && known.repeat != Repeat::Adds;
        if (isDuplicate)
            ReportDuplicate(child, known, *earlier);
        if (!isDuplicate || known.repeat == Repeat::LastCounts) {
            earlier = &child;
            CheckKey(child, known);
            Enter(child, known);
        }
    }

    void CheckUnknown(const Element& child)
    {
        if (child.tag == "keyword" && !form_.failsOnUnknown)
            return; // reported as a nested keyword
        if (form_.form == Form::Data && type_)
            reporter_.Report(Code::SecondType, child.span,
                fmt::format("{} is ignored; the first element of <data> is used", Tagged(child.tag)),
                "remove it");
        else
            ReportUnknownChild(child, element_, form_, reporter_);
    }

    void ReportDuplicate(const Element& child, const ChildForm& known, const Element& earlier)
    {
        const Code code = known.isType ? Code::SecondType : Code::RepeatedElement;
        const std::size_t line = reporter_.GetDocument().LocationOf(earlier.span.offset).line;
        std::string message;
        if (known.form == Form::Flag)
            message = fmt::format(
                "duplicate {} has no effect; the one on line {} is enough", Tagged(child.tag), line);
        else if (known.form == Form::Default)
            message = fmt::format("duplicate <default> is merged into the one on line {}", line);
        else if (known.repeat == Repeat::FirstCounts)
            message = fmt::format(
                "{} is ignored; {} on line {} is used", Tagged(child.tag), Tagged(earlier.tag), line);
        else
            message = fmt::format("{} replaces {} on line {}", Tagged(child.tag), Tagged(earlier.tag), line);
        reporter_.Report(code, child.span, message, "keep one of them");
    }

    void CheckKey(const Element& child, const ChildForm& known)
    {
        const Attribute* const key = known.key ? child.Find(known.key) : nullptr;
        if (!key || key->value.empty() || keys_.insert(child.tag + '\n' + key->value).second)
            return;
        reporter_.Report(Code::ListedTwice, key->valueSpan,
            fmt::format(fmt::runtime(known.duplicate), Tagged(child.tag), Quoted(key->value)),
            "remove one of them");
    }

    void Enter(const Element& child, const ChildForm& known)
    {
        context_.isEnded = isEnded_ && (form_.form != Form::Record || &child == lastItem_);
        const bool isNamed = known.form == Form::Item || known.form == Form::Assignment;
        CheckElement(child, FormOf(known.form), context_,
            isNamed ? reporter_.In(known.tag, child.Get("name")) : reporter_);
    }

    const Element& element_;
    const ElementForm& form_;
    Context context_;
    const Reporter& reporter_;
    bool hasTypes_;
    bool isEnded_ = false;
    const Element* lastItem_ = nullptr; // of a record
    bool hasContent_ = false;
    const Element* type_ = nullptr;
    std::map<std::string_view, const Element*> first_;
    std::unordered_set<std::string> keys_;
};

} // namespace

void CheckElement(
    const Element& element, const ElementForm& form, const Context& context, const Reporter& reporter)
{
    CheckAttributes(element, form, reporter);
    CheckOwnText(element, form, reporter);
    CheckRules(element, form.form, context, reporter);
    ChildrenCheck(element, form, context, reporter).Check();
}

void ReportUnknownChild(
    const Element& child, const Element& parent, const ElementForm& form, const Reporter& reporter)
{
    const std::string hint = reporter.IsFull() ? "" : HintOfElement(child.tag, form);
    if (form.failsOnUnknown)
        reporter.Report(Code::UnknownElement, child.span,
            fmt::format("unknown element {} in {}; the load fails", Tagged(child.tag), Tagged(parent.tag)),
            hint);
    else
        reporter.Report(Code::IgnoredElement, child.span,
            fmt::format("unknown element {} in {} is ignored", Tagged(child.tag), Tagged(parent.tag)), hint);
}

void CheckOwnText(const Element& element, const ElementForm& form, const Reporter& reporter)
{
    if (form.hasText || IsBlank(element.text))
        return;
    reporter.Report(Code::StrayText, element.span,
        form.form == Form::Flag
            ? fmt::format("the text in {} is ignored; the element itself sets the flag", Tagged(element.tag))
            : fmt::format("the text in {} is ignored", Tagged(element.tag)),
        "remove the text, or the element");
}

} // namespace Veld::Quor::Core::Lint
