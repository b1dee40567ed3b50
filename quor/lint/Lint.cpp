#include "quor/lint/Lint.h"

#include "quor/lint/internal/FormWalk.h"
#include "quor/lint/internal/NameRules.h"
#include "quor/lint/internal/RuleDocuments.h"

#include <fmt/format.h>

#include <tuple>
#include <unordered_map>

namespace Veld::Quor::Core::Lint {

namespace Decks = Core::Decks;
namespace {

/// All keywords below an element, which the loader finds at any depth.
class KeywordSearch {
public:
    KeywordSearch(const Reporter& reporter, std::vector<const Element*>& keywords)
        : reporter_(reporter)
        , keywords_(keywords)
    {
    }

    /// An element other than <keyword> is only allowed if it contains keywords.
    bool SearchOutside(const Element& parent)
    {
        CheckOwnText(parent, FormOf(Form::Root), reporter_);
        bool hasKeyword = false;
        for (const Element& child : parent.children) {
            if (child.tag == "keyword") {
                hasKeyword = true;
                keywords_.push_back(&child);
                SearchInside(child);
            } else if (SearchOutside(child)) {
                hasKeyword = true;
            } else {
                ReportUnknownChild(child, parent, FormOf(Form::Root), reporter_);
            }
        }
        return hasKeyword;
    }

private:
    void SearchInside(const Element& keyword)
    {
        ForEachBelow(keyword, "keyword", [&](const Element& inner) {
            reporter_.InKeyword(inner).Report(Code::NestedKeyword, inner.span,
                "keyword inside another keyword is read as a separate keyword",
                "move it after the other keyword");
            keywords_.push_back(&inner);
        });
    }

    const Reporter& reporter_;
    std::vector<const Element*>& keywords_;
};

/// The first short form below an element; null if there is none.
const Element* FindShortForm(const Element& parent)
{
    for (const Element& child : parent.children) {
        const bool isItem = parent.tag == "record" && child.tag != "item" && child.Find("name");
        if (isItem || child.tag == "records" || (child.tag == "use" && child.Find("piece")))
            return &child;
        if (const Element* const inner = FindShortForm(child))
            return inner;
    }
    return nullptr;
}

Definition CheckOne(const Element& keyword, const Reporter& reporter)
{
    const Reporter own = reporter.InKeyword(keyword);
    ValidityElements elements;
    for (const Element& child : keyword.children) {
        if (child.tag == "data")
            break; // validity after <data> is too late
        elements.Note(child);
    }
    const KeywordValidity validity(elements);
    Context context;
    context.runs = validity.GetRuns();
    for (std::size_t row = 0; row < simulatorCount; ++row)
        context.simulators.set(row, validity.IsValidFor(SimulatorType::Enum(row)));
    CheckElement(keyword, FormOf(Form::Keyword), context, own);
    return {&keyword, own, validity.cells};
}

/// Of the built-in language: read at the first question of the process, which is much longer than to lint a
/// document.
const NameSet& GetBuiltinNames()
{
    static const NameSet names = [] {
        NameSet all;
        for (const Document& document : Document::ReadBuiltin()) {
            if (document.GetRoot())
                ForEachBelow(
                    *document.GetRoot(), "keyword", [&](const Element& keyword) { all.AddAll(keyword); });
        }
        return all;
    }();
    return names;
}

void SortByLocation(const std::vector<Document>& documents, Decks::Findings& findings)
{
    std::unordered_map<std::string, std::size_t> ranks;
    for (const Document& document : documents)
        ranks.try_emplace(document.GetName(), ranks.size());
    const auto key = [&](const Decks::Finding& finding) {
        return std::make_tuple(ranks[finding.location.file], finding.location.line, finding.location.column);
    };
    Decks::FindingCollector(findings).Sort(
        [&](const Decks::Finding& a, const Decks::Finding& b) { return key(a) < key(b); });
}

} // namespace

LintReport LintDocuments(const std::vector<Document>& documents, std::size_t maxFindings)
{
    LintReport report{Decks::FindingCollector::Make(maxFindings), {}};
    std::vector<Definition> definitions;
    for (const Document& document : documents) {
        const Reporter reporter(report.findings, document);
        std::vector<const Element*> keywords;
        if (const auto& refusal = document.GetRefusal())
            reporter.ReportAt(Code::NotWellFormed, refusal->location,
                fmt::format("cannot read the document: {}", refusal->reason));
        else if (IsOfRules(*document.GetRoot()))
            CheckRuleDocument(*document.GetRoot(), reporter);
        else if (const Element* const shortForm = FindShortForm(*document.GetRoot()))
            reporter.Report(Code::ShortForm, shortForm->span,
                fmt::format("{} is a short form, which the loader doesn't know; nothing else is checked in "
                            "the document",
                    Tagged(shortForm->tag)),
                "check the document in which the short forms are expanded");
        else if (!KeywordSearch(reporter, keywords).SearchOutside(*document.GetRoot()))
            reporter.Report(Code::NoKeyword, document.GetRoot()->span,
                fmt::format("no <keyword> in {}", Tagged(document.GetRoot()->tag)));
        for (const Element* const keyword : keywords)
            definitions.push_back(CheckOne(*keyword, reporter));
        report.keywords.push_back(keywords.size());
    }
    CheckNames(definitions, [](const std::string& name) { return GetBuiltinNames().Has(name); });
    SortByLocation(documents, report.findings);
    return report;
}

} // namespace Veld::Quor::Core::Lint
