#include "quor/lint/internal/DocumentForm.h"

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/syntax/SummaryCategories.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <map>

namespace Veld::Quor::Core::Lint {

using namespace Core::Keywords;

namespace {

using Children = std::vector<ChildForm>;

Children Join(Children first, const Children& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

ChildForm Last(const char* tag, Form form)
{
    return {.tag = tag, .form = form, .repeat = Repeat::LastCounts};
}

ChildForm Flag(const char* tag)
{
    return {.tag = tag, .form = Form::Flag, .repeat = Repeat::FirstCounts};
}

ChildForm Type(const char* tag, Form form, Repeat repeat)
{
    return {.tag = tag, .form = form, .repeat = repeat, .isType = true};
}

ChildForm Entry(
    const char* tag, Form form, const char* key, const char* duplicate = "duplicate {} {} counts once")
{
    return {.tag = tag, .form = form, .key = key, .duplicate = duplicate};
}

ChildForm Odd(ChildForm child)
{
    child.isOdd = true;
    return child;
}

Children ItemTypes(Repeat repeat)
{
    return {Type("real", Form::Real, repeat), Type("integer", Form::Integer, repeat),
        Type("string", Form::String, repeat), Type("choice", Form::Choice, repeat),
        Type("list", Form::List, repeat), Type("record", Form::Record, repeat),
        Type("boolean", Form::Boolean, repeat), Type("line", Form::Line, repeat)};
}

std::vector<ElementForm> MakeForm()
{
    const auto description = Last("description", Form::Text);
    const auto defaultOf = Last("default", Form::Default);
    const auto termination = AttributeForm{"termination", Words::Termination};
    const auto name = AttributeForm{"name", Words::Any, true};
    const auto simulator = AttributeForm{"name", Words::Simulator, true};
    const auto gridEditsOnly = AttributeForm{"gridEditsOnly", Words::Flag};
    const auto classicOnly = AttributeForm{"classicOnly", Words::Flag};
    const Children keywordValidity = {Last("validSimulators", Form::ValidSimulators),
        Last("validOptions", Form::ValidOptions), Last("validSections", Form::ValidSections)};
    const Children number = {Last("min", Form::Limit), Last("max", Form::Limit),
        Last("default", Form::Default), Last("format", Form::Text)};

    // Form, tag, attributes, children, message for an empty one, whether an unknown child fails the load,
    // whether text is read.
    return {
        {Form::Root, "the root", {}, {{"keyword", Form::Keyword}}},
        {Form::Keyword, "keyword", {name, {"id"}},
            Join({description, Last("documentation", Form::Text), Flag("isHidden"), Flag("isGeneric"),
                     {"aliases", Form::KeywordAliases}, Last("precedents", Form::Precedents),
                     Last("scope", Form::Scope), Last("summaryMnemonic", Form::SummaryMnemonic),
                     Last("cell", Form::Cell), {"data", Form::Data, Repeat::FirstCounts}},
                keywordValidity)},
        {Form::Text, "text", {}, {}, nullptr, false, true},
        {Form::Flag, "flag"},
        {Form::KeywordAliases, "aliases", {}, {Entry("alias", Form::KeywordAlias, "name")},
            "<aliases> is empty; expected <alias>"},
        {Form::KeywordAlias, "alias", {name}, Join({Flag("isHiddenAlias")}, keywordValidity)},
        {Form::ValidSimulators, "validSimulators", {}, {Entry("simulator", Form::KeywordSimulator, "name")},
            "<validSimulators> is empty; the keyword is valid for all simulators"},
        {Form::KeywordSimulator, "simulator",
            {simulator, {"supportLevel", Words::SupportLevel}, gridEditsOnly, classicOnly}},
        {Form::ValidOptions, "validOptions", {}, {Entry("option", Form::Option, "value")},
            "<validOptions> is empty; the keyword is valid in all modes"},
        {Form::Option, "option", {{"value", Words::Mode, true}}},
        {Form::ValidSections, "validSections", {}, {Entry("section", Form::Section, "name")},
            "<validSections> is empty; the keyword is valid in all sections"},
        {Form::Section, "section", {{"name", Words::Section, true}},
            {Entry("simulator", Form::VariantSimulator, "name")}},
        {Form::VariantSimulator, "simulator", {simulator, gridEditsOnly, classicOnly}},
        {Form::Precedents, "precedents", {}, {Entry("precedent", Form::Precedent, "name")},
            "<precedents> is empty; expected <precedent>"},
        {Form::Precedent, "precedent", {name}},
        {Form::Scope, "scope", {}, {Entry("endKeyword", Form::EndKeyword, "name")},
            "<scope> is empty; nothing ends the scope", true},
        {Form::EndKeyword, "endKeyword", {name, {"explicit", Words::Flag}}},
        {Form::SummaryMnemonic, "summaryMnemonic", {},
            {Entry("category", Form::Category, "name", "duplicate {} {}; the last one is used")},
            "<summaryMnemonic> is empty; the summary vector has no category", true},
        {Form::Category, "category", {{"name", Words::Category, true}, {"val"}}},
        {Form::Cell, "cell",
            {{"property"}, {"components", Words::Flag}, {"copyLayerAboveByDefault", Words::Flag},
                {"dualPorosityMatrixOnly", Words::Flag}}},
        {Form::Data, "data", {},
            {Type("record", Form::Record, Repeat::FirstCounts), Type("list", Form::List, Repeat::FirstCounts),
                Type("map", Form::Map, Repeat::FirstCounts), Type("raw", Form::Raw, Repeat::FirstCounts)},
            "<data> is empty; the keyword has no data", true},
        {Form::Record, "record", {termination},
            {description,
                Entry("item", Form::Item, "name", "duplicate {} {}; only the position distinguishes them")},
            "<record> has no item", true},
        {Form::Item, "item",
            {name, {"optional", Words::Flag}, {"identifier", Words::Flag},
                {"columnConstraint", Words::Constraint}},
            Join({description, Last("validity", Form::Validity), Last("unsupportedBy", Form::UnsupportedBy),
                     Flag("skippableOnRead"), Flag("skippableOnWrite")},
                ItemTypes(Repeat::FirstCounts)),
            nullptr, true},
        {Form::List, "list",
            {{"size"}, {"minSize"}, {"maxSize"}, termination, {"itemsDefaultable", Words::Flag},
                {"fillEmptyElementsWithPreviousValue", Words::Flag}, {"writeStartingOnNewLine", Words::Flag},
                {"writeTerminationOnNewLine", Words::Flag}},
            Join({description, Last("customReadTermination", Form::CustomReadTermination)},
                ItemTypes(Repeat::LastCounts)),
            "<list> has no element type", true},
        {Form::CustomReadTermination, "customReadTermination", {}, {{"stringTermination", Form::Text}},
            "<customReadTermination> is empty; no word ends the list", true},
        {Form::Map, "map", {termination}, {description, {"assignment", Form::Assignment}},
            "<map> has no assignment", true},
        {Form::Assignment, "assignment", {{"name", Words::Upper}, {"wildcard", Words::Flag}},
            {description, Last("integer", Form::AssignedInteger), {"aliases", Form::AssignmentAliases},
                {"validity", Form::AssignmentValidity}}},
        {Form::AssignedInteger, "integer", {}, Join({description}, number)},
        {Form::AssignmentAliases, "aliases", {}, {{"alias", Form::AssignmentAlias}},
            "<aliases> is empty; expected <alias>"},
        {Form::AssignmentAlias, "alias", {{"name", Words::Upper, true}}},
        {Form::AssignmentValidity, "validity", {}, {Odd(Entry("simulator", Form::ItemSimulator, "name"))}},
        {Form::ItemSimulator, "simulator", {simulator}},
        {Form::Raw, "raw", {{"stringTermination"}}, {description}, nullptr, true},
        {Form::Real, "real", {}, Join({description, Last("quantity", Form::Quantity)}, number)},
        {Form::Integer, "integer", {}, Join({Odd(description)}, number)},
        {Form::Boolean, "boolean", {}, {description, defaultOf}},
        {Form::Line, "line", {}, {description, defaultOf}},
        {Form::String, "string", {{"canContainComma", Words::Flag}},
            {description, defaultOf, Flag("caseSensitive"), Last("lengthLimit", Form::Text)}},
        {Form::Choice, "choice", {}, {description, defaultOf, {"values", Form::Values}},
            "<choice> has no <values>; nothing can be chosen"},
        {Form::Limit, "min", {{"val", Words::Any, true}}},
        {Form::Quantity, "quantity", {name}},
        {Form::Default, "default", {{"type"}, {"val"}},
            {Entry("override", Form::Override, "name", "duplicate {} {}; the last one is used")}},
        {Form::Override, "override", {{"name", Words::OverrideSimulator, true}, {"type"}, {"val"}}},
        {Form::Values, "values", {}, {{"value", Form::Value}}, "<values> is empty; nothing can be chosen"},
        {Form::Value, "value", {{"string"}},
            {Last("validity", Form::Validity), Last("unsupportedBy", Form::UnsupportedBy),
                {"aliases", Form::ChoiceAliases}}},
        {Form::ChoiceAliases, "aliases", {}, {Odd({"alias", Form::ChoiceAlias})},
            "<aliases> is empty; expected <alias>"},
        {Form::ChoiceAlias, "alias", {{"name", Words::Upper, true}}, {Odd(Flag("isHiddenAlias"))}},
        {Form::Validity, "validity", {},
            {Odd(Entry("simulator", Form::ItemSimulator, "name")),
                Odd(Entry("option", Form::Option, "value"))}},
        {Form::UnsupportedBy, "unsupportedBy", {}, {Odd(Entry("simulator", Form::VariantSimulator, "name"))},
            "<unsupportedBy> is empty; all simulators support it"},
    };
}

/// The texts from value `first` on, in their order.
template <class T>
std::vector<std::string> Texts(int first = 0)
{
    std::vector<std::string> texts;
    for (int value = first; !T::ToString(static_cast<typename T::Enum>(value)).empty(); ++value)
        texts.push_back(T::ToString(static_cast<typename T::Enum>(value)));
    return texts;
}

} // namespace

const AttributeForm* ElementForm::FindAttribute(std::string_view name) const
{
    const auto at = std::find_if(attributes.begin(), attributes.end(),
        [&](const AttributeForm& attribute) { return attribute.name == name; });
    return at == attributes.end() ? nullptr : &*at;
}

const ChildForm* ElementForm::FindChild(std::string_view childTag) const
{
    const auto at = std::find_if(
        children.begin(), children.end(), [&](const ChildForm& child) { return child.tag == childTag; });
    return at == children.end() ? nullptr : &*at;
}

const std::vector<ElementForm>& DocumentForm()
{
    static const std::vector<ElementForm> rows = MakeForm();
    return rows;
}

const ElementForm& FormOf(Form form)
{
    const ElementForm& row = DocumentForm()[static_cast<std::size_t>(form)];
    assert(row.form == form && "FormOf: the rows are not in the order of the forms");
    return row;
}

const std::vector<std::string>& TextsOf(Words words)
{
    static const std::vector<std::string> none;
    static const std::map<Words, std::vector<std::string>> texts = {
        {Words::Flag, {"true", "false"}},
        {Words::Simulator, Texts<SimulatorType>()},
        {Words::OverrideSimulator, Texts<SimulatorType>()},
        {Words::Mode, Texts<SimulatorModeType>()},
        {Words::Section, Texts<SectionType>()},
        {Words::Termination, Texts<IKeywordDataMD::TerminationType>()},
        {Words::Constraint, Texts<IKeywordDataMD::ColumnConstraintType>(1)},
        {Words::Category, {"entity", "flow", "function", "option", "phase"}},
    };
    const auto at = texts.find(words);
    return at == texts.end() ? none : at->second;
}

std::vector<std::string> ValuesOfCategory(const std::string& category)
{
    if (category == "entity")
        return Texts<SummaryEntity>();
    if (category == "flow")
        return Texts<SummaryFlow>();
    if (category == "function")
        return Texts<SummaryFunction>();
    if (category == "phase")
        return Texts<SummaryPhase>();
    if (category != "option")
        return {};
    std::vector<std::string> texts = Texts<SummaryOption>();
    texts[SummaryOption::Aquifer] = "Aqui"; // the only text in documents that differs from the name
    return texts;
}

} // namespace Veld::Quor::Core::Lint
