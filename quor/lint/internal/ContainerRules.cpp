// Records' items, lists, maps and their assignments.

#include "quor/lint/internal/Rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_set>

namespace Veld::Quor::Core::Lint {

namespace {

std::optional<long> ReadSize(const std::string& text)
{
    long size = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(size) : std::nullopt;
}

void CheckSizes(const Element& list, const Reporter& reporter)
{
    const Attribute* const size = list.Find("size");
    for (const char* const name : {"size", "minSize", "maxSize"}) {
        const Attribute* const given = list.Find(name);
        if (given && IsBlank(given->value))
            reporter.Report(Code::MissingAttribute, given->nameSpan,
                fmt::format("attribute '{}' is empty", name), "remove the attribute");
        if (given && size && given != size)
            reporter.Report(Code::SizeConflict, given->nameSpan,
                fmt::format("attribute '{}' has no effect because the list has attribute 'size'", name),
                fmt::format("remove attribute '{}'", name));
    }
    const auto least = ReadSize(list.Get("minSize"));
    const auto most = ReadSize(list.Get("maxSize"));
    if (least && most && *least > *most)
        reporter.Report(Code::CrossedLimits, list.Find("maxSize")->valueSpan,
            fmt::format("maxSize {} is less than minSize {}", *most, *least));
}

void CheckListEnd(const Element& list, const Context& context, const Reporter& reporter)
{
    const Element* const words = FindLast(list, "customReadTermination");
    const Attribute* const termination = list.Find("termination");
    if (!termination)
        return;
    const bool isCustomized = termination->value == "CUSTOMIZED";
    if (words && !isCustomized)
        reporter.Report(Code::TerminationOverridden, termination->valueSpan,
            fmt::format("termination {} has no effect; with <customReadTermination> it is CUSTOMIZED",
                Quoted(termination->value)),
            "write CUSTOMIZED, or remove <customReadTermination>");
    if (!words && isCustomized)
        reporter.Report(Code::NoTerminationWords, termination->valueSpan,
            "termination CUSTOMIZED without <customReadTermination>; no word ends the list",
            "add <customReadTermination>");
    if (!words && termination->value == "NONE" && !list.Find("size") && !context.isEnded)
        reporter.Report(Code::SizeConflict, termination->valueSpan,
            "the list has neither a size nor a termination",
            "add attribute 'size', or a termination other than NONE");
}

void CheckAssignmentValidity(const Element& assignment, const Context& context, const Reporter& reporter)
{
    Runs runs;
    for (const Element& child : assignment.children) {
        if (child.tag == "validity")
            runs |= ReadItemRuns(child);
    }
    if ((runs & context.runs).any() || context.runs.none())
        return;
    const Element* const validity = FindLast(assignment, "validity");
    reporter.Report(Code::ValidNowhere, validity ? validity->span : assignment.span,
        validity ? "the assignment is not valid for any simulator of the keyword"
                 : "the assignment is not valid for any simulator because it has no <validity>",
        "list its simulators in <validity>");
}

} // namespace

void CheckItem(const Element& item, const Context& context, const Reporter& reporter)
{
    CheckItemValidity(item, context, reporter);
    const Element* const type = FindType(item, Form::Item);
    if (!type)
        return;
    const Attribute* const constraint = item.Find("columnConstraint");
    if (constraint && type->tag != "real" && type->tag != "integer")
        reporter.Report(Code::ConstraintOnText, constraint->nameSpan,
            fmt::format("column constraint on {}; expected <real> or <integer>", Tagged(type->tag)),
            "remove the attribute");
    if (item.IsFlagged("identifier") && !IsScalar(*type))
        reporter.Report(Code::UnseenIdentifier, item.Find("identifier")->nameSpan,
            fmt::format("attribute 'identifier' has no effect on {}; expected a scalar", Tagged(type->tag)),
            "mark the identifying items inside it");
}

void CheckList(const Element& list, const Context& context, const Reporter& reporter)
{
    CheckSizes(list, reporter);
    CheckListEnd(list, context, reporter);
    const Element* const type = FindType(list, Form::List);
    if (list.IsFlagged("itemsDefaultable") && !(type && IsScalar(*type)))
        reporter.Report(Code::DefaultableContainer, list.Find("itemsDefaultable")->nameSpan,
            "attribute 'itemsDefaultable' on a list that has no scalar elements; the load fails",
            "remove the attribute");
}

void CheckMap(const Element& map, const Reporter& reporter)
{
    std::unordered_set<std::string> keys;
    const auto check = [&](const Element& element, const Reporter& inner) {
        const Attribute* const name = element.Find("name");
        if (name && !name->value.empty() && !keys.insert(name->value).second)
            inner.Report(Code::UnreachableWord, name->valueSpan,
                fmt::format(
                    "unreachable key {}; an earlier assignment has the same key", Quoted(name->value)),
                "remove it");
    };
    for (const Element& assignment : map.children) {
        if (assignment.tag != "assignment" || assignment.IsFlagged("wildcard"))
            continue;
        const Reporter inner = reporter.In("assignment", assignment.Get("name"));
        check(assignment, inner);
        ForEachAlias(assignment, [&](const Element& alias) { check(alias, inner); });
    }
}

void CheckAssignment(const Element& assignment, const Context& context, const Reporter& reporter)
{
    if (!IsDescribed(assignment))
        reporter.Report(
            Code::NoDescription, assignment.span, "the assignment has no description", "add a <description>");
    if (assignment.Get("name").empty() && !assignment.IsFlagged("wildcard")
        && !FindLast(assignment, "aliases"))
        reporter.Report(Code::NoKey, assignment.span, "the assignment has neither a name nor an alias",
            "add attribute 'name'");
    CheckAssignmentValidity(assignment, context, reporter);
}

void CheckItemValidity(const Element& owner, const Context& context, const Reporter& reporter)
{
    const Element* const validity = FindLast(owner, "validity");
    if (!validity || context.runs.none() || (ReadItemRuns(*validity) & context.runs).any())
        return;
    reporter.Report(Code::ValidNowhere, validity->span,
        owner.tag == "value"
            ? "the choice is not valid anywhere: <validity> lists no simulator or mode of the keyword"
            : "the item is not valid anywhere: <validity> lists no simulator or mode of the keyword",
        "list simulators or modes of the keyword, or remove <validity>");
}

const Element* FindLast(const Element& element, std::string_view tag)
{
    const auto at = std::find_if(element.children.rbegin(), element.children.rend(),
        [&](const Element& child) { return child.tag == tag; });
    return at == element.children.rend() ? nullptr : &*at;
}

bool IsDescribed(const Element& element)
{
    const Element* const description = FindLast(element, "description");
    return description && !(IsBlank(description->text) && description->children.empty());
}

const Element* FindType(const Element& element, Form form)
{
    const Element* type = nullptr;
    for (const Element& child : element.children) {
        const ChildForm* const known = FormOf(form).FindChild(child.tag);
        if (known && known->isType && (!type || known->repeat == Repeat::LastCounts))
            type = &child;
    }
    return type;
}

bool IsScalar(const Element& type)
{
    return type.tag != "list" && type.tag != "record" && type.tag != "map" && type.tag != "raw";
}

} // namespace Veld::Quor::Core::Lint
