#include "tools/quor/tree/NodeTexts.h"

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/ISkippableInfo.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Words = std::vector<std::string>;

const IKeywordDataMD* FindListItem(const IKeywordDataMD& md)
{
    return md.GetType() == MDType::List ? static_cast<const IKeywordListMD&>(md).GetItemMD() : nullptr;
}

std::string PluralOf(const IKeywordDataMD& md)
{
    if (md.GetType() != MDType::List)
        return TypeWord(md.GetType()) + 's';
    const IKeywordDataMD* const item = FindListItem(md);
    return item ? "lists of " + PluralOf(*item) : "lists";
}

/// `noMark` for what ends without one.
std::string EndText(IKeywordDataMD::TerminationType::Enum termination, const char* noMark)
{
    using Termination = IKeywordDataMD::TerminationType;
    switch (termination) {
    case Termination::NONE:
        return noMark;
    case Termination::SLASH:
        return "ends with a slash";
    case Termination::EOL:
        return "ends with the line";
    case Termination::CUSTOMIZED:
        break;
    }
    return "ends as its reader knows";
}

std::string EndText(const IKeywordListMD& list, const IKeywordSyntax& syntax)
{
    const ICustomReadTermination* const own = list.GetCustomReadTermination();
    if (!own || list.GetTermination() != IKeywordDataMD::TerminationType::CUSTOMIZED)
        return EndText(list.GetTermination(), list.GetSize() ? "ends by its size" : "has no end mark");
    const Words words = FindEndWords(*own, syntax);
    return words.empty() ? "ends with its own word" : fmt::format("ends with {}", fmt::join(words, " or "));
}

Words ListFacts(const IKeywordListMD& list, const IKeywordSyntax& syntax)
{
    Words facts;
    if (const std::string* size = list.GetSize())
        facts.push_back("size " + *size);
    if (const std::string* size = list.GetMinSize())
        facts.push_back("at least " + *size);
    if (const std::string* size = list.GetMaxSize())
        facts.push_back("at most " + *size);
    facts.push_back(EndText(list, syntax));
    if (list.IsItemDefaultable())
        facts.push_back("elements may be defaulted");
    if (list.FillEmptyElementsWithPreviousValue())
        facts.push_back("empty elements repeat the one before");
    return facts;
}

const char* ColumnText(IKeywordDataMD::ColumnConstraintType::Enum constraint)
{
    using Constraint = IKeywordDataMD::ColumnConstraintType;
    switch (constraint) {
    case Constraint::StrictlyIncreasing:
        return "strictly increasing";
    case Constraint::StrictlyDecreasing:
        return "strictly decreasing";
    case Constraint::Increasing:
        return "increasing";
    case Constraint::Decreasing:
        return "decreasing";
    case Constraint::None:
        break;
    }
    return nullptr;
}

} // namespace

std::string ShapeText(const IKeywordDataMD& md)
{
    if (const IKeywordDataMD* item = FindListItem(md))
        return "list of " + PluralOf(*item);
    if (md.GetType() == MDType::Raw)
        return "raw text";
    return md.GetType() == MDType::Map ? "map of integers" : TypeWord(md.GetType());
}

const IKeywordDataMD* FindScalar(const IKeywordDataMD& md)
{
    const IKeywordDataMD* const item = FindListItem(md);
    const IKeywordDataMD& inner = item ? *item : md;
    return KeywordUtils::IsItemMDType(&inner) ? &inner : nullptr;
}

std::vector<std::string> FactsOf(const IKeywordDataMD& md, const IKeywordSyntax& syntax)
{
    return VisitMD(md,
        Overloaded{[&](const IKeywordListMD& list) { return ListFacts(list, syntax); },
            [](const IKeywordRecordMD& record) {
                return Words{EndText(record.GetTermination(), "ends with its last item")};
            },
            [](const IKeywordMapMD& map) { return Words{EndText(map.GetTermination(), "has no end mark")}; },
            [](const IKeywordRawMD& raw) {
                const std::string end = raw.GetTerminationString();
                return Words{end.empty() ? "has no end mark" : "ends with " + end};
            },
            [](const IKeywordDataMD&) { return Words(); }});
}

std::vector<std::string> MarksOf(const IKeywordRecordMD& record, int index)
{
    const ISkippableInfo* const skippable = record.GetSkippableInfo();
    const bool onRead = skippable && skippable->IsSkippableOnRead(static_cast<unsigned>(index));
    const bool onWrite = skippable && skippable->IsSkippableOnWrite(static_cast<unsigned>(index));
    Words marks;
    if (record.IsIdentifier(index))
        marks.push_back("identifier");
    if (record.IsOptional(index))
        marks.push_back("optional");
    if (const char* column = ColumnText(record.GetColumnConstraint(index)))
        marks.push_back(column);
    if (onRead && onWrite)
        marks.push_back("skippable");
    else if (onRead)
        marks.push_back("skippable on read");
    else if (onWrite)
        marks.push_back("skippable on write");
    return marks;
}

} // namespace Veld::Quor::Tools
