#include "quor/deck/internal/rules/RuleParts.h"

#include "quor/deck/FindingCodes.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Comments of decks may name it.
void NoteCode(const RuleElement& element, const std::string& code, RuleSet& rules)
{
    const auto isKnown = [&](const CodeInfo& info) { return info.name == code; };
    if (!code.empty() && std::none_of(Codes().begin(), Codes().end(), isKnown)
        && std::find(rules.ownCodes.begin(), rules.ownCodes.end(), code) == rules.ownCodes.end()) {
        constexpr std::size_t mostCodes = 100; // comments of decks know no more
        if (rules.ownCodes.size() == mostCodes)
            element.Fail(
                fmt::format("too many codes of documents of rules; expected at most {}", mostCodes), "code");
        rules.ownCodes.push_back(code);
    }
}

} // namespace

FindingVoice ReadVoice(RuleElement& element, RuleSet& rules)
{
    FindingVoice voice;
    voice.text = element.Find("text");
    voice.code = element.Find("code");
    if (voice.code.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-") != std::string::npos)
        element.Fail(fmt::format("attribute 'code' is '{}'; expected lower-case letters, digits and hyphens",
                         voice.code),
            "code");
    const std::string severity = element.Find("severity");
    for (const Severity known : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (severity == ToString(known))
            voice.severity = known;
    }
    if (!severity.empty() && !voice.severity)
        element.Fail(
            fmt::format("attribute 'severity' is '{}'; expected 'error', 'warning' or 'note'", severity),
            "severity");
    NoteCode(element, voice.code, rules);
    return voice;
}

std::vector<SectionType::Enum> ReadSections(RuleElement& element)
{
    std::vector<SectionType::Enum> sections;
    for (const std::string& word : element.FindWords("sections")) {
        bool isFound = false;
        sections.push_back(SectionType::FromString(word, &isFound));
        if (!isFound)
            element.Fail(fmt::format("unknown section '{}'", word), "sections");
    }
    return sections;
}

RecordCondition ReadCondition(RuleElement& element, const std::string& text, const char* attribute,
    const std::vector<std::string>& keywords)
{
    const std::size_t equals = text.find('=');
    RecordCondition condition = {
        text.substr(0, equals), equals == std::string::npos ? "" : text.substr(equals + 1)};
    if (!text.empty()) {
        element.CheckItem(condition.item, attribute);
        element.CheckChoice(keywords, condition.item, condition.word, attribute);
    }
    return condition;
}

ItemSelection ReadSelection(RuleElement& element)
{
    ItemSelection selection;
    selection.keywords = element.FindKeywords("keywords");
    selection.except = element.FindKeywords("except");
    selection.items = element.FindItems("items");
    selection.unless = element.FindItem("unless");
    selection.sections = ReadSections(element);
    selection.when = ReadCondition(element, element.Find("when"), "when", selection.keywords);
    if (const std::string word = element.Find("entity"); !word.empty()) {
        bool isFound = false;
        selection.entity = SummaryEntity::FromString(word, &isFound);
        if (!isFound)
            element.Fail(fmt::format("unknown kind of output vector '{}'", word), "entity");
    }
    if (selection.keywords.empty() && selection.items.empty() && !selection.entity)
        element.Fail("no keywords and no items", {}, "expected 'keywords', 'items' or 'entity'");
    return selection;
}

std::string ReadKind(RuleElement& element, const char* attribute, const RuleSet& rules)
{
    std::set<std::string> kinds;
    for (const NameRule& rule : rules.names)
        kinds.insert(rule.noun);
    std::string kind = element.Get(attribute);
    element.Check("kind of names", kind, kinds, attribute);
    return kind;
}

SizeLimit ReadLimit(RuleElement& element)
{
    const std::string item = element.GetItem("size");
    const std::string keyword = element.GetKeywords("keyword").front();
    return {item, keyword, keyword + '.' + item};
}

} // namespace Veld::Quor::Core::Decks
