#include "quor/lint/Codes.h"

#include "quor/deck/internal/check/CodeTable.h"

namespace Veld::Quor::Core::Lint {

using Decks::CodeInfo;

const std::vector<CodeInfo>& Codes()
{
    constexpr auto error = Decks::Severity::Error;
    constexpr auto warning = Decks::Severity::Warning;

    // Code, name, severity (an error if the load fails), meaning, remedy, a wrong document and the right one.
    static constexpr Decks::CodeRow<Code> rows[] = {
        {Code::NotWellFormed, "not-well-formed", error, "The XML is malformed, or rejected as unsafe.",
            "Correct the XML. References to external files are rejected, and so are documents that are too "
            "deep or too large.",
            "<keyword name='K'>\n <isHidden>\n</keyword>\n",
            "<keyword name='K'>\n <isHidden/>\n</keyword>\n"},
        {Code::ShortForm, "short-form", error, "A document has short forms, which the loader doesn't know.",
            "Expand the short forms, as the build of a language does, and check the expanded document.",
            "<data><records><item name='I'><real/></item></records></data>\n",
            "<data><list><record><item name='I'><real/></item></record></list></data>\n"},
        {Code::NoKeyword, "no-keyword", warning, "The document has no keyword.",
            "Add a <keyword>, or leave the document out.", "<!-- none -->\n", "<keyword name='K'/>\n"},
        {Code::NestedKeyword, "nested-keyword", warning,
            "A keyword is inside another one, and is read as a separate keyword.",
            "Move the inner keyword after the outer one.",
            "<keyword name='K'><keyword name='L'/></keyword>\n",
            "<keyword name='K'/>\n<keyword name='L'/>\n"},
        {Code::UnknownElement, "unknown-element", error,
            "An element is unknown in its parent, and the load fails.",
            "Correct the name of the element, or move it to the parent that it belongs to.",
            "<item name='I'><real/></item>\n<itm/>\n", "<item name='I'><real/></item>\n"},
        {Code::IgnoredElement, "ignored-element", warning,
            "An element is unknown in its parent, and is ignored.",
            "Correct the name of the element, or move it to the parent that it belongs to.",
            "<documentatoin>D</documentatoin>\n", "<documentation>D</documentation>\n"},
        {Code::IgnoredAttribute, "ignored-attribute", warning,
            "An attribute is unknown on its element, and is ignored.",
            "Correct the name of the attribute, or move it to the element that it belongs to.",
            "<item name='I' optoinal='true'><real/></item>\n",
            "<item name='I' optional='true'><real/></item>\n"},
        {Code::PassedOver, "passed-over", warning,
            "An element is ignored because no white space is directly before it.",
            "Put each element and each comment on a separate line.",
            "<item name='I'><real/><validity>\n <option value='Thermal'/>\n <!-- x --><simulator "
            "name='Carrow'/>\n</validity></item>\n",
            "<item name='I'><real/><validity>\n <option value='Thermal'/>\n <!-- x -->\n <simulator "
            "name='Carrow'/>\n</validity></item>\n"},
        {Code::StrayText, "stray-text", warning, "The text of an element is ignored.",
            "Remove the text. An element that is a flag is set by being there.",
            "<isHidden>false</isHidden>\n", "<isHidden> </isHidden>\n"},
        {Code::RepeatedElement, "repeated-element", warning,
            "Of several elements of a kind only one is used.", "Keep one of the elements.",
            "<item name='I'><real><max val='1'/><max val='2'/></real></item>\n",
            "<item name='I'><real><min val='1'/><max val='2'/></real></item>\n"},
        {Code::SecondType, "second-type", warning, "Of several types only one is used.",
            "Keep one of the types. Values of several types need an item each.",
            "<item name='I'><real/><string/></item>\n", "<item name='I'><real/></item>\n"},
        {Code::MissingType, "missing-type", error, "An item has no type.",
            "Add a type: <real>, <integer>, <string>, <choice>, <boolean>, <line>, <list> or <record>.",
            "<item name='I'/>\n", "<item name='I'><real/></item>\n"},
        {Code::EmptyElement, "empty-element", warning, "An element has no content.",
            "Add the content, or remove the element.", "<data><record/></data>\n",
            "<data><record><item name='I'><real/></item></record></data>\n"},
        {Code::MissingAttribute, "missing-attribute", warning, "A required attribute is missing or empty.",
            "Write the attribute.", "<item name='I'><real><quantity/></real></item>\n",
            "<item name='I'><real><quantity name='length'/></real></item>\n"},
        {Code::ListedTwice, "listed-twice", warning, "Two entries have the same name.",
            "Remove one of the entries.",
            "<validSections><section name='GRID'/><section name='GRID'/></validSections>\n",
            "<validSections><section name='GRID'/><section name='EDIT'/></validSections>\n"},
        {Code::FlagText, "flag-text", warning, "A flag is neither true nor false, and is read as false.",
            "Write true or false.", "<item name='I' optional='yes'><real/></item>\n",
            "<item name='I' optional='false'><real/></item>\n"},
        {Code::UnknownSimulator, "unknown-simulator", warning,
            "An unknown simulator is read as the first one.", "Correct the name of the simulator.",
            "<validSimulators><simulator name='Dunmer'/></validSimulators>\n",
            "<validSimulators><simulator name='Dunmere'/></validSimulators>\n"},
        {Code::UnknownMode, "unknown-mode", warning, "An unknown mode is read as the first one.",
            "Correct the name of the mode.", "<validOptions><option value='Blackoil'/></validOptions>\n",
            "<validOptions><option value='BlackOil'/></validOptions>\n"},
        {Code::UnknownSection, "unknown-section", warning, "An unknown section is read as the first one.",
            "Correct the name of the section.", "<validSections><section name='Grid'/></validSections>\n",
            "<validSections><section name='GRID'/></validSections>\n"},
        {Code::UnknownOverride, "unknown-override", error, "An override is for an unknown simulator.",
            "Correct the name of the simulator, or remove the override.",
            "<item name='I'>\n <real><default type='calculated'><override name='X' "
            "type='calculated'/></default></real>\n</item>\n",
            "<item name='I'>\n <real><default type='calculated'><override name='Wend' "
            "type='calculated'/></default></real>\n</item>\n"},
        {Code::UnknownTermination, "unknown-termination", error,
            "A termination is none of the four known ones.", "Write SLASH, EOL, CUSTOMIZED or NONE.",
            "<data><list termination='slash'><real/></list></data>\n", "<data><list><real/></list></data>\n"},
        {Code::UnknownConstraint, "unknown-constraint", error,
            "A column constraint is none of the four known ones.",
            "Correct the constraint, or remove the attribute.",
            "<item name='I' columnConstraint='Increasing'><real/></item>\n",
            "<item name='I' columnConstraint='increasing'><real/></item>\n"},
        {Code::UnknownCategory, "unknown-category", error, "A summary category or its value is unknown.",
            "Correct the category or its value.",
            "<summaryMnemonic><category name='entity' val='well'/></summaryMnemonic>\n",
            "<summaryMnemonic><category name='entity' val='Well'/></summaryMnemonic>\n"},
        {Code::SupportLevel, "support-level", warning,
            "A support level is similar to 'ignored' but not equal.",
            "Write 'ignored' in lower case. All other texts count as supported.",
            "<validSimulators><simulator name='Wend' supportLevel='Ignored'/></validSimulators>\n",
            "<validSimulators><simulator name='Wend' supportLevel='partly'/></validSimulators>\n"},
        {Code::NoEntity, "no-entity", warning, "A summary vector has no entity.",
            "Add a category 'entity' with its value.",
            "<summaryMnemonic><category name='phase' val='Oil'/></summaryMnemonic>\n",
            "<summaryMnemonic><category name='entity' val='Field'/></summaryMnemonic>\n"},
        {Code::LateValidity, "late-validity", warning, "Validity after the data is too late for the keyword.",
            "Move the element before <data>.",
            "<data><list><real/></list></data>\n<validSections><section name='GRID'/></validSections>\n",
            "<validSections><section name='GRID'/></validSections>\n<data><list><real/></list></data>\n"},
        {Code::ModelessSimulator, "modeless-simulator", warning,
            "A simulator has none of the listed modes, and the keyword is valid in all its modes.",
            "List only simulators that have one of the modes, or add a mode of the simulator.",
            "<validSimulators><simulator name='Carrow'/></validSimulators>\n<validOptions><option "
            "value='Thermal'/></validOptions>\n",
            "<validSimulators><simulator name='Dunmere'/></validSimulators>\n<validOptions><option "
            "value='Thermal'/></validOptions>\n"},
        {Code::ValidNowhere, "valid-nowhere", warning,
            "A keyword, an item, a choice or an assignment is not valid anywhere.",
            "Make it valid for a simulator, or remove it.",
            "<validSimulators><simulator name='Wend' supportLevel='ignored'/></validSimulators>\n",
            "<validSimulators><simulator name='Wend'/></validSimulators>\n"},
        {Code::EntryWithoutEffect, "entry-without-effect", warning, "An entry has no effect.",
            "Remove the entry.",
            "<validSimulators><simulator name='Sedge' classicOnly='true'/></validSimulators>\n",
            "<validSimulators><simulator name='Wend' classicOnly='true'/></validSimulators>\n"},
        {Code::DefaultType, "default-type", error, "The type of a default is unknown or not allowed.",
            "Write specified, calculated or 'no default'. A line can't have 'no default'.",
            "<item name='I'><line><default type='no default'/></line></item>\n",
            "<item name='I'><line><default type='calculated'/></line></item>\n"},
        {Code::ChoiceDefaultType, "choice-default-type", warning,
            "The default of a choice has an unknown type, and is ignored.",
            "Write specified, calculated or 'no default'.",
            "<item name='I'><choice>\n <default type='none'/>\n <values><value string='OIL'/><value "
            "string='GAS'/></values>\n</choice></item>\n",
            "<item name='I'><choice>\n <default type='no default'/>\n <values><value "
            "string='OIL'/><value string='GAS'/></values>\n</choice></item>\n"},
        {Code::DefaultValue, "default-value", error,
            "A specified default has no value, or a calculated default has one.",
            "Write a value if the default is specified, and none if it is calculated.",
            "<item name='I'><real><default type='calculated' val='1'/></real></item>\n",
            "<item name='I'><real><default type='calculated'/></real></item>\n"},
        {Code::IgnoredValue, "ignored-value", warning,
            "A default of type 'no default' has a value, which is ignored.",
            "Remove the value, or write the type 'specified'.",
            "<item name='I'><real><default type='no default' val='1'/></real></item>\n",
            "<item name='I'><real><default type='no default'/></real></item>\n"},
        {Code::NumberText, "number-text", warning, "A text is not a number, and is read as something else.",
            "Write a number of the type that is expected there.",
            "<item name='I'><integer><max val='12abc'/></integer></item>\n",
            "<item name='I'><integer><max val='+12'/></integer></item>\n"},
        {Code::CrossedLimits, "crossed-limits", warning,
            "The minimum value or size is greater than the maximum.", "Correct one of the limits.",
            "<item name='I'><real><min val='2'/><max val='1e0'/></real></item>\n",
            "<item name='I'><real><min val='2'/><max val='2'/></real></item>\n"},
        {Code::DefaultOutside, "default-outside", warning, "A default is outside the limits of its item.",
            "Correct the default or the limits.",
            "<item name='I'><real><max val='1'/><default type='specified' val='1.5'/></real></item>\n",
            "<item name='I'><real><max val='1'/><default type='specified' val='1'/></real></item>\n"},
        {Code::BooleanText, "boolean-text", warning, "A default is neither YES nor NO, and is read as true.",
            "Write YES or NO.",
            "<item name='I'><boolean><default type='specified' val='no'/></boolean></item>\n",
            "<item name='I'><boolean><default type='specified' val='NO'/></boolean></item>\n"},
        {Code::DefaultNoChoice, "default-no-choice", warning, "A default matches no choice.",
            "Write one of the choices.",
            "<item name='I'><choice>\n <default type='specified' val='OILS'/>\n <values><value "
            "string='OIL'/><value string='GAS'/></values>\n</choice></item>\n",
            "<item name='I'><choice>\n <default type='specified' val='oil'/>\n <values><value "
            "string='OIL'/><value string='GAS'/></values>\n</choice></item>\n"},
        {Code::DefaultNotInFull, "default-not-in-full", warning,
            "A default is an abbreviation or an alias of a choice.", "Write the choice in full.",
            "<item name='I'><choice>\n <default type='specified' val='GA'/>\n <values><value "
            "string='OIL'/><value string='GAS'/></values>\n</choice></item>\n",
            "<item name='I'><choice>\n <default type='specified' val='GAS'/>\n <values><value "
            "string='OIL'/><value string='GAS'/></values>\n</choice></item>\n"},
        {Code::LostOverride, "lost-override", warning,
            "An override of the default of a choice has no effect.",
            "Write a specified default for the simulator, or remove the override.",
            "<item name='I'><choice>\n <default type='specified' val='GAS'><override name='Wend' "
            "type='calculated'/></default>\n  <values><value string='OIL'/><value string='GAS'/></values>\n "
            "</choice>\n</item>\n",
            "<item name='I'><choice>\n <default type='specified' val='GAS'><override name='Wend' "
            "type='no default'/></default>\n  <values><value string='OIL'/><value string='GAS'/></values>\n "
            "</choice>\n</item>\n"},
        {Code::OverrideElsewhere, "override-elsewhere", warning,
            "An override is for a simulator that the keyword is not valid for.",
            "Remove the override, or make the keyword valid for the simulator.",
            "<validSimulators><simulator name='Sedge'/></validSimulators>\n<data>\n <list>\n  <real>\n   "
            "<default type='calculated'><override name='Wend' type='no default'/></default>\n  </real>\n "
            "</list>\n</data>\n",
            "<validSimulators><simulator name='Wend'/></validSimulators>\n<data>\n <list>\n  <real>\n   "
            "<default type='calculated'><override name='Wend_GE' type='no default'/></default>\n  </real>\n "
            "</list>\n</data>\n"},
        {Code::LowerCase, "lower-case", warning, "A name or word in lower case never matches.",
            "Write the name or word in upper case.", "<keyword name='permx'/>\n",
            "<keyword name='PERMX'/>\n"},
        {Code::UnreachableWord, "unreachable-word", warning,
            "A choice, alias or key is unreachable because an earlier one is the same.",
            "Remove the word, or write a different one.",
            "<item name='I'>\n <choice><values><value string='OIL'/><value "
            "string='oil'/></values></choice>\n</item>\n",
            "<item name='I'>\n <choice><values><value string='OIL'/><value "
            "string='OILS'/></values></choice>\n</item>\n"},
        {Code::NoKey, "no-key", warning, "An assignment has neither a name nor an alias.",
            "Write a name or an alias.",
            "<data><map><assignment><validity>\n <simulator "
            "name='Carrow'/>\n</validity></assignment></map></data>\n",
            "<data><map><assignment name='STEPS'><validity>\n <simulator "
            "name='Carrow'/>\n</validity></assignment></map></data>\n"},
        {Code::NameLength, "name-length", warning,
            "The name of a keyword has more than eight characters, or an alias more than 16.",
            "Shorten the name to eight characters.", "<keyword name='NINECHARS'/>\n",
            "<keyword name='EIGHTCHR'/>\n"},
        {Code::NameText, "name-text", warning,
            "The name of a keyword contains a blank, or an asterisk before its end.",
            "Remove the blank, or the text after the asterisk.", "<keyword name='A*B'/>\n",
            "<keyword name='A*'/>\n"},
        {Code::DefinedTwice, "defined-twice", warning,
            "A name is defined twice for one section and simulator.",
            "Use different sections or simulators, or remove one of the definitions.",
            "<keyword name='K' id='1'><validSections><section "
            "name='GRID'/></validSections></keyword>\n<keyword name='K' id='2'><validSections><section "
            "name='GRID'/></validSections></keyword>\n",
            "<keyword name='K' id='1'><validSections><section "
            "name='GRID'/></validSections></keyword>\n<keyword name='K' id='2'><validSections><section "
            "name='EDIT'/></validSections></keyword>\n"},
        {Code::KeyTwice, "key-twice", warning,
            "Two definitions have the same id, or the same name and no id.", "Write a different id.",
            "<keyword name='K'><validSections><section name='GRID'/></validSections></keyword>\n<keyword "
            "name='K'><validSections><section name='EDIT'/></validSections></keyword>\n",
            "<keyword name='K'><validSections><section name='GRID'/></validSections></keyword>\n<keyword "
            "name='K' id='2'><validSections><section name='EDIT'/></validSections></keyword>\n"},
        {Code::WildcardOverlap, "wildcard-overlap", warning,
            "A wildcard hides part of another one in the same section.",
            "Use different sections or different prefixes.", "<keyword name='A*'/>\n<keyword name='AB*'/>\n",
            "<keyword name='A*'/>\n<keyword name='AB'/>\n"},
        {Code::UnknownKeyword, "unknown-keyword", warning,
            "A precedent or an end keyword is an unknown keyword.",
            "Correct the name, or define the keyword.",
            "<precedents><precedent name='WELSPEX'/></precedents>\n",
            "<precedents><precedent name='WELSPECS'/></precedents>\n"},
        {Code::PrecedentCycle, "precedent-cycle", warning,
            "A keyword is a direct or indirect precedent of itself.", "Remove one of the precedents.",
            "<keyword name='A'><precedents><precedent name='B'/></precedents></keyword>\n<keyword "
            "name='B'><precedents><precedent name='A'/></precedents></keyword>\n",
            "<keyword name='A'><precedents><precedent name='B'/></precedents></keyword>\n<keyword "
            "name='B'/>\n"},
        {Code::NoDescription, "no-description", warning,
            "A keyword, an item or an assignment has no description.",
            "Add a <description>; that of an item is inside its type.", "<item name='I'><real/></item>\n",
            "<item name='I'><real><description>Depth.</description></real></item>\n"},
        {Code::DefaultableContainer, "defaultable-container", error,
            "The attribute itemsDefaultable is on a list that has no scalar elements.",
            "Remove the attribute. The items of inner lists can have it.",
            "<data><list itemsDefaultable='true'><list><real/></list></list></data>\n",
            "<data><list itemsDefaultable='true'><real/></list></data>\n"},
        {Code::TerminationOverridden, "termination-overridden", warning,
            "A list with <customReadTermination> has another termination than CUSTOMIZED.",
            "Write CUSTOMIZED, or remove <customReadTermination>.",
            "<data>\n <list termination='EOL'>\n  <real/>\n  "
            "<customReadTermination><stringTermination>E</stringTermination></customReadTermination>\n "
            "</list>\n</data>\n",
            "<data>\n <list>\n  <real/>\n  "
            "<customReadTermination><stringTermination>E</stringTermination></customReadTermination>\n "
            "</list>\n</data>\n"},
        {Code::NoTerminationWords, "no-termination-words", warning,
            "The termination is CUSTOMIZED, but no word ends the list.",
            "Add <customReadTermination> with the words.",
            "<data><list termination='CUSTOMIZED'><real/></list></data>\n",
            "<data><list termination='EOL'><real/></list></data>\n"},
        {Code::SizeConflict, "size-conflict", warning,
            "The size and the termination of a list contradict each other.",
            "Write a size or its limits, not both. Without a size, write a termination other than NONE.",
            "<data><list termination='NONE'><real/></list></data>\n",
            "<data><list size='NX' termination='NONE'><real/></list></data>\n"},
        {Code::ConstraintOnText, "constraint-on-text", warning,
            "A column constraint is on an item that is not a number.",
            "Remove the attribute, or use <real> or <integer>.",
            "<item name='I' columnConstraint='increasing'><string/></item>\n",
            "<item name='I' columnConstraint='increasing'><real/></item>\n"},
        {Code::CellWithoutList, "cell-without-list", warning,
            "The data of a cell property is not a list of scalars.",
            "Remove <cell>, or make <data> a list of scalars.",
            "<cell/>\n<data><record><item name='I'><real/></item></record></data>\n",
            "<cell/>\n<data><list><real/></list></data>\n"},
        {Code::BlankFormat, "blank-format", warning, "A blank format is ignored.",
            "Write a format such as %g, or remove <format>.",
            "<item name='I'><real><format> </format></real></item>\n",
            "<item name='I'><real><format>%g</format></real></item>\n"},
        {Code::UnseenIdentifier, "unseen-identifier", warning,
            "The attribute identifier has no effect on an item that is not a scalar.",
            "Mark the scalars inside it that identify the record.",
            "<item name='I' identifier='true'><list><real/></list></item>\n",
            "<item name='I' identifier='true'><real/></item>\n"},
        {Code::WrongRule, "wrong-rule", error,
            "An element of a document of rules is no rule, and is refused.",
            "Correct the name that the finding quotes. A rule about what the language lacks would never "
            "report.",
            "<rules><once keywords='STRAT'/></rules>\n", "<rules><once keywords='START'/></rules>\n"},
    };
    static_assert(HasRowForEach(rows, Code::WrongRule), "a code and its row are not in the same position");
    static const std::vector<CodeInfo> infos = InfosOf(rows);
    return infos;
}

const CodeInfo& InfoOf(Code code)
{
    return GetInfo(Codes(), code);
}

const CodeInfo* FindInfo(std::string_view name)
{
    return FindInfo(Codes(), name);
}

} // namespace Veld::Quor::Core::Lint
