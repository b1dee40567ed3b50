#include "tools/lint/FormWalk.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>
#include <utility>

namespace Veld::Quor::Tools::Lint {

namespace {

/// The tags of the elements on which an attribute of that name is known.
std::vector<std::string> OwnersOf(const std::string& attribute)
{
    std::set<std::string> owners;
    for (const ElementForm& form : DocumentForm()) {
        if (form.FindAttribute(attribute))
            owners.insert(Tagged(form.tag));
    }
    return {owners.begin(), owners.end()};
}

/// The tags of the elements in which an element of that tag is known.
std::vector<std::string> ParentsOf(const std::string& tag)
{
    std::set<std::string> parents;
    for (const ElementForm& form : DocumentForm()) {
        if (form.form != Form::Root && form.FindChild(tag))
            parents.insert(Tagged(form.tag));
    }
    return {parents.begin(), parents.end()};
}

template <class Row, class Name>
std::vector<std::string> NamesOf(const std::vector<Row>& rows, Name name)
{
    std::vector<std::string> names;
    for (const Row& row : rows)
        names.emplace_back(row.*name);
    return names;
}

std::string HintOf(const std::string& name, const std::vector<std::string>& known,
    const std::vector<std::string>& homes, const char* belongs)
{
    std::string hint = HintOfNearest(name, known);
    if (hint.empty() && !homes.empty())
        hint = fmt::format("it belongs {} {}", belongs, Listed(homes));
    if (hint.empty())
        hint = known.empty() ? "remove it" : fmt::format("known here: {}", Listed(known));
    return hint;
}

/// What the loader makes of a text that is none of an enumeration.
struct WordsRule {
    Words words;
    Code code;
    const char* what;
    const char* outcome;
};

constexpr WordsRule wordsRules[] = {
    {Words::Flag, Code::FlagText, "flag", "counts as false"},
    {Words::Simulator, Code::UnknownSimulator, "simulator", "counts as Carrow"},
    {Words::OverrideSimulator, Code::UnknownOverride, "simulator", "the load fails"},
    {Words::Mode, Code::UnknownMode, "mode", "counts as BlackOil"},
    {Words::Section, Code::UnknownSection, "section", "counts as RUNSPEC"},
    {Words::Termination, Code::UnknownTermination, "termination", "the load fails"},
    {Words::Constraint, Code::UnknownConstraint, "column constraint", "the load fails"},
    {Words::Category, Code::UnknownCategory, "category", "the load fails"},
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
        hint = fmt::format("known ones: {}", Listed(known));
    reporter.Report(
        rule->code, span, fmt::format("{} is no {}, and {}", Quoted(text), rule->what, rule->outcome), hint);
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
            fmt::format("{} is never matched, since what a deck says is folded to upper case", Quoted(text)),
            "write it in upper case");
    if (words == Words::SupportLevel && text != "ignored" && !HintOfNearest(text, {"ignored"}).empty())
        reporter.Report(Code::SupportLevel, attribute.valueSpan,
            fmt::format("the support level {} isn't \"ignored\", and the entry counts", Quoted(text)),
            "write ignored");
}

void CheckMissing(const Element& element, const AttributeForm& attribute, const Reporter& reporter)
{
    const Attribute* const given = element.Find(attribute.name);
    if (given && !given->value.empty())
        return;
    // An enumeration has said what an empty text is taken for, if there was one.
    if (!given && CheckEnumeration(attribute.words, "", element.span, reporter))
        return;
    if (!given || TextsOf(attribute.words).empty())
        reporter.Report(Code::MissingAttribute, given ? given->nameSpan : element.span,
            fmt::format("{} has no {}", Tagged(element.tag), attribute.name),
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
            fmt::format("{} isn't known on {}, and is ignored", Quoted(attribute.name), Tagged(element.tag)),
            reporter.IsFull() ? ""
                              : HintOf(attribute.name, NamesOf(form.attributes, &AttributeForm::name),
                                  OwnersOf(attribute.name), "on"));
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

/// Holds the children of one element against its form, one after the other.
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
            reporter_.Report(Code::MissingType, element_.span, "the item has no type, and the load fails",
                "add one of <real>, <integer>, <string>, <choice>, <boolean>, <line>, <list> and <record>");
        else if (!holdsSomething_ && form_.empty)
            reporter_.Report(Code::EmptyElement, element_.span,
                fmt::format("{} holds nothing: {}", Tagged(element_.tag), form_.empty));
    }

private:
    void CheckKnown(const Element& child, const ChildForm& known)
    {
        holdsSomething_ = holdsSomething_
            || (hasTypes_ ? known.isType : child.tag != "description" && child.tag != "default");
        if (known.isOdd && child.position % 2 == 0) {
            reporter_.Report(Code::PassedOver, child.span,
                fmt::format(
                    "{} is passed over, since no white space of its own stands before it", Tagged(child.tag)),
                "put it on a line of its own, and comments elsewhere");
            return;
        }
        const Element*& earlier = known.isType ? type_ : first_[known.tag];
        const bool isAgain = earlier && known.repeat != Repeat::Adds;
        if (isAgain)
            ReportAgain(child, known, *earlier);
        if (!isAgain || known.repeat == Repeat::LastCounts) {
            earlier = &child;
            CheckKey(child, known);
            Enter(child, known);
        }
    }

    void CheckUnknown(const Element& child)
    {
        if (child.tag == "keyword" && !form_.failsOnUnknown)
            return; // one of its own: told where keywords are looked for
        if (form_.form == Form::Data && type_)
            reporter_.Report(Code::SecondType, child.span,
                fmt::format("{} is not looked at: the first element of <data> counts", Tagged(child.tag)),
                "remove it");
        else
            ReportUnknownChild(child, element_, form_, reporter_);
    }

    void ReportAgain(const Element& child, const ChildForm& known, const Element& earlier)
    {
        const Code code = known.isType ? Code::SecondType : Code::RepeatedElement;
        const std::size_t line = reporter_.GetDocument().LocationOf(earlier.span.offset).line;
        std::string message;
        if (known.form == Form::Flag)
            message = fmt::format("a second {} adds nothing to that of line {}", Tagged(child.tag), line);
        else if (known.form == Form::Default)
            message = fmt::format("a second <default> is laid over that of line {}", line);
        else if (known.repeat == Repeat::FirstCounts)
            message = fmt::format(
                "{} is not looked at: {} of line {} counts", Tagged(child.tag), Tagged(earlier.tag), line);
        else
            message = fmt::format(
                "{} takes the place of {} of line {}", Tagged(child.tag), Tagged(earlier.tag), line);
        reporter_.Report(code, child.span, message, "keep one of them");
    }

    void CheckKey(const Element& child, const ChildForm& known)
    {
        const Attribute* const key = known.key ? child.Find(known.key) : nullptr;
        if (!key || key->value.empty() || keys_.insert(child.tag + '\n' + key->value).second)
            return;
        reporter_.Report(Code::ListedTwice, key->valueSpan,
            fmt::format(
                "there is a {} for {} before: {}", Tagged(child.tag), Quoted(key->value), known.twice),
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
    bool holdsSomething_ = false;
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
    const char* const outcome = form.failsOnUnknown ? "the load fails" : "is ignored";
    reporter.Report(form.failsOnUnknown ? Code::UnknownElement : Code::IgnoredElement, child.span,
        fmt::format("{} isn't known in {}, and {}", Tagged(child.tag), Tagged(parent.tag), outcome),
        reporter.IsFull()
            ? ""
            : HintOf(child.tag, NamesOf(form.children, &ChildForm::tag), ParentsOf(child.tag), "in"));
}

void CheckOwnText(const Element& element, const ElementForm& form, const Reporter& reporter)
{
    if (form.takesText || IsBlank(element.text))
        return;
    reporter.Report(Code::StrayText, element.span,
        form.form == Form::Flag
            ? fmt::format("{} counts by being there, whatever its text says", Tagged(element.tag))
            : fmt::format("the text in {} is ignored", Tagged(element.tag)),
        "remove the text, or the element");
}

} // namespace Veld::Quor::Tools::Lint
