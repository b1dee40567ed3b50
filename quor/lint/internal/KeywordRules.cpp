// The rules of a keyword: where it is valid, what ends its scope, its summary vector.

#include "quor/lint/internal/Rules.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Lint {

namespace {

void CheckLateValidity(const Element& keyword, const Reporter& reporter)
{
    bool isLate = false;
    for (const Element& child : keyword.children) {
        ValidityElements ignored;
        if (isLate && ignored.Note(child))
            reporter.Report(Code::LateValidity, child.span,
                fmt::format("{} after <data> applies to aliases only", Tagged(child.tag)),
                "move it before <data>");
        isLate = isLate || child.tag == "data";
    }
}

/// Of a keyword or an alias, from the elements that count for it.
void CheckValidity(const Element& owner, const ValidityElements& elements, const Reporter& reporter)
{
    const KeywordValidity validity(elements);
    if (validity.cells.none())
        reporter.Report(Code::ValidNowhere, owner.span,
            fmt::format("{} is not valid for any simulator", Tagged(owner.tag)));
    if (elements.options && validity.modeless.any())
        reporter.Report(Code::ModelessSimulator, elements.options->span,
            fmt::format("no listed mode is a mode of {}; the keyword is valid in all modes there",
                ListSimulators(validity.modeless)),
            "list in <validSimulators> only simulators that have one of the modes");
}

/// The simulators of a section only restrict those of the keyword.
void CheckSectionSimulators(const ValidityElements& elements, const Reporter& reporter)
{
    if (!elements.sections || !elements.simulators)
        return;
    const KeywordValidity everywhere({elements.simulators, elements.options, nullptr});
    ForEachBelow(*elements.sections, "simulator", [&](const Element& entry) {
        bool isKnown = false;
        const auto simulator = SimulatorType::FromString(entry.Get("name"), &isKnown);
        if (isKnown && everywhere.cells.any() && !everywhere.IsValidFor(simulator))
            reporter.Report(Code::EntryWithoutEffect, entry.span,
                fmt::format("simulator {} has no effect because the keyword is not valid for it",
                    Quoted(entry.Get("name"))),
                "add it to <validSimulators>, or remove it here");
    });
}

void CheckCell(const Element& keyword, const Reporter& reporter)
{
    const Element* const cell = FindLast(keyword, "cell");
    if (!cell)
        return;
    const auto data = std::find_if(keyword.children.begin(), keyword.children.end(),
        [](const Element& child) { return child.tag == "data"; });
    const Element* const list = data == keyword.children.end() ? nullptr : FindType(*data, Form::Data);
    const Element* const type = list && list->tag == "list" ? FindType(*list, Form::List) : nullptr;
    if (!type || !IsScalar(*type))
        reporter.Report(Code::CellWithoutList, cell->span,
            "<cell> has no effect because <data> is not a list of scalars",
            "remove <cell>, or make <data> a list of scalars");
}

void CheckDescribed(const Element& keyword, const Reporter& reporter)
{
    if (!IsDescribed(keyword))
        reporter.Report(
            Code::NoDescription, keyword.span, "the keyword has no description", "add a <description>");
}

} // namespace

void CheckKeyword(const Element& keyword, const Reporter& reporter)
{
    ValidityElements early;
    ValidityElements all;
    bool isLate = false;
    for (const Element& child : keyword.children) {
        isLate = isLate || child.tag == "data";
        all.Note(child);
        if (!isLate)
            early.Note(child);
    }
    CheckDescribed(keyword, reporter);
    CheckLateValidity(keyword, reporter);
    CheckValidity(keyword, early, reporter);
    CheckSectionSimulators(early, reporter);
    CheckCell(keyword, reporter);
    ForEachAlias(keyword, [&](const Element& alias) {
        ValidityElements own;
        for (const Element& child : alias.children)
            own.Note(child);
        if (!own.IsEmpty())
            CheckValidity(alias, own.Or(all), reporter.In("alias", alias.Get("name")));
    });
}

void CheckSimulatorEntry(const Element& entry, const Reporter& reporter)
{
    for (const char* const flag : {"gridEditsOnly", "classicOnly"}) {
        if (entry.IsFlagged(flag) && entry.Get("name") != SimulatorType::ToString(SimulatorType::Wend))
            reporter.Report(Code::EntryWithoutEffect, entry.Find(flag)->nameSpan,
                fmt::format("attribute '{}' has no effect on simulator {}; only Wend has variants", flag,
                    Quoted(entry.Get("name"))),
                "remove the attribute");
    }
}

void CheckScope(const Element& scope, const Reporter& reporter)
{
    const Element* earlier = nullptr;
    for (const Element& end : scope.children) {
        if (end.tag != "endKeyword" || !end.IsFlagged("explicit"))
            continue;
        if (earlier)
            reporter.Report(Code::RepeatedElement, end.span,
                fmt::format("explicit end keyword {} replaces {}; expected one explicit end keyword",
                    Quoted(end.Get("name")), Quoted(earlier->Get("name"))),
                "remove attribute 'explicit' from one of them");
        earlier = &end;
    }
}

void CheckSummaryMnemonic(const Element& mnemonic, const Reporter& reporter)
{
    if (std::none_of(mnemonic.children.begin(), mnemonic.children.end(),
            [](const Element& child) { return child.Get("name") == "entity"; })
        && !mnemonic.children.empty())
        reporter.Report(Code::NoEntity, mnemonic.span, "the summary vector has no category 'entity'",
            "add <category name=\"entity\" val=\"...\"/>");
}

void CheckCategory(const Element& category, const Reporter& reporter)
{
    const std::vector<std::string> known = ValuesOfCategory(category.Get("name"));
    const std::string& value = category.Get("val");
    if (known.empty() || std::find(known.begin(), known.end(), value) != known.end())
        return;
    const Attribute* const given = category.Find("val");
    const std::string hint = HintOfNearest(value, known);
    reporter.Report(Code::UnknownCategory, given ? given->valueSpan : category.span,
        fmt::format(
            "unknown value {} of category {}; the load fails", Quoted(value), Quoted(category.Get("name"))),
        hint.empty() ? fmt::format("expected {}", Listed(known)) : hint);
}

} // namespace Veld::Quor::Core::Lint
