#include "tests/trust/Rules.h"
#include "tests/trust/ValueKinds.h"

#include <algorithm>

namespace Veld::Quor::Trust {

using namespace Core::Decks;

namespace {

/// The name or number of something that the deck doesn't have.
std::string Undefined(const SampleDeck& deck, const Value& value, Random& random)
{
    const bool isNumber = value.md->GetType() == Core::Keywords::IKeywordDataMD::MDType::Integer;
    if (isNumber)
        return value.text == "0" ? std::string() : std::to_string(std::stoi(value.text) + 17);
    if (value.text.find_first_of("*?") != std::string::npos || value.text.empty() || value.text == "FIELD")
        return {};
    return MisspeltName(deck, value.text, random);
}

/// The same for a name that is used elsewhere too.
std::string UndefinedName(const SampleDeck& deck, const Value& value, Random& random)
{
    return deck.UsesOf(value.text).size() < 3 ? std::string() : Undefined(deck, value, random);
}

/// The name of a list, which begins with an asterisk.
std::string UndefinedList(const SampleDeck&, const Value& value, Random&)
{
    return value.text.size() > 1 && value.text.front() == '*' ? "'" + value.text + "X'" : std::string();
}

std::string Unmatched(const SampleDeck&, const Value& value, Random&)
{
    const bool isPattern = value.text.size() > 1 && value.text.back() == '*' && value.text.front() != '*';
    return isPattern ? "'QZ" + value.text + "'" : std::string();
}

/// Removes the record that defines a name that is used elsewhere.
MakeMistake RemoveDefinition(const std::string& where)
{
    return [where = Where(where)](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const Value* value = ChooseValue(deck, FindValues(deck, where), random);
        const std::size_t uses = value ? deck.UsesOf(value->text).size() : 0;
        if (uses < 2 || value->path.size() != 2 || value->path.back() != 0)
            return std::nullopt;
        const TextRange slash = deck.SlashAfter(*value);
        return Mistake{
            {{{slash.file, value->range.offset, slash.offset + slash.length - value->range.offset}, ""}},
            deck.UsesOf(value->text)};
    };
}

/// Exchanges a keyword with the next one, which uses its names.
MakeMistake ExchangeWithNext(const std::string& where, const std::string& next)
{
    return [where = Where(where), next](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        std::vector<std::size_t> keywords = FindKeywords(deck, where);
        std::erase_if(keywords, [&](std::size_t at) {
            return at + 1 == deck.GetDeck().GetSize() || !deck.GetDeck()[at + 1].IsNamed(next)
                || deck.GetDeck()[at + 1].GetRange().file != deck.GetDeck()[at].GetRange().file;
        });
        if (keywords.empty())
            return std::nullopt;
        const std::size_t at = random.Choose(keywords);
        const TextRange first = deck.GetDeck()[at].GetRange();
        const TextRange second = deck.GetDeck()[at + 1].GetRange();
        return Mistake{
            {{first, std::string(deck.GetText(second))}, {second, std::string(deck.GetText(first))}}};
    };
}

/// The folder of a path alias. The inclusions that use it are places.
std::optional<Mistake> MisspellPath(const SampleDeck& deck, Random& random)
{
    const Value* path = ChooseValue(deck, FindValues(deck, Where("PATHS.PATH")), random);
    if (!path)
        return std::nullopt;
    Mistake mistake{{{path->range, "'" + MisspeltName(deck, path->text, random) + "'"}}};
    const std::string alias = "$" + FindSibling(deck, *path, "ALIAS")->text + "/";
    for (std::uint32_t file = 1; file < deck.GetDeck().GetFiles().GetSize(); ++file) {
        const TextRange inclusion = *deck.GetDeck().GetFiles().Get(file).inclusion;
        if (deck.GetText(inclusion).find(alias) != std::string_view::npos)
            mistake.places.push_back(inclusion);
    }
    return mistake;
}

/// What the documents of rules say of names.
void AddKindsOfRules(std::vector<Kind>& kinds)
{
    for (const Rule& rule : ReadRules(QUOR_SOURCE_DIR "/language/rules")) {
        if (rule.tag != "names")
            continue;
        std::string uses;
        std::string definitions; // keywords that are not meant
        for (const Rule& use : rule.children) {
            uses += use.tag == "refer" ? WhereOf(use, "items") : "";
            for (const std::string& keyword : use.GetWords("keywords"))
                definitions += use.tag == "define" ? "-" + keyword + " " : "";
        }
        const std::string kind = rule.Get("kind");
        if (kind == "well" || kind == "group") // vectors of SUMMARY are a kind of their own
            uses += "@SCHEDULE ";
        if (kind == "well" || kind == "group" || kind == "fault")
            uses += definitions;
        if (!uses.empty())
            kinds.push_back({"undefined " + kind, OnValue(uses, Undefined)});
    }
}

} // namespace

void AddKindsOfNames(std::vector<Kind>& kinds)
{
    AddKindsOfRules(kinds);
    const std::vector<Kind> added{
        {"misspelt well where it is defined", OnValue("WELSPECS.WELL", Undefined, "uses")},
        {"misspelt group where wells join it", OnValue("WELSPECS.GROUP", Undefined, "uses")},
        {"misspelt group in the tree", OnValue("GRUPTREE.PARENT GRUPTREE.GROUP", Undefined, "uses")},
        {"misspelt fault where it is defined", OnValue("FAULTS.FAULT", Undefined, "uses")},
        {"definition of a well missing", RemoveDefinition("WELSPECS.WELL")},
        {"definition of a fault missing", RemoveDefinition("FAULTS.FAULT")},
        {"well completed before it is defined", ExchangeWithNext("WELSPECS", "COMPDAT")},
        {"pattern that matches no well", OnValue("*.WELL @SCHEDULE", Unmatched)},
        {"output of an undefined well",
            OnValue("WOPR WWPR WGPR WBHP WGOR WWCT WTICHEA WTPCHEA COFR.WELL CWFR.WELL @SUMMARY", Undefined)},
        {"output of an undefined group", OnValue("GOPR GWPR GGPR GWIR GOPT @SUMMARY", Undefined)},
        {"undefined list of wells", OnValue("*.WELL @SCHEDULE", UndefinedList)},
        {"undefined aquifer", OnValue("AQUANCON.AQUIFER", Undefined)},
        {"output of an undefined aquifer", OnValue("AAQP AAQR AAQT @SUMMARY", Undefined)},
        {"undefined separator", OnValue("GSEPCOND.NAME", Undefined)},
        {"undefined stream", OnValue("GINJGAS.NAME GINJGAS.MAKEUP WINJGAS.STREAM", Undefined)},
        {"undefined tracer", OnValue("WTRACER.TRACER", Undefined)},
        {"undefined local grid", OnValue("COMPDATL.LGR WELSPECL.LGR", Undefined)},
        {"undefined segment", OnValue("WSEGVALV.SEGMENT", Undefined)},
        {"segment without an outlet", OnValue("WELSEGS.OUTLET", Undefined, "record")},
        {"segments of an undefined well", OnValue("WELSEGS.WELL COMPSEGS.WELL", Undefined)},
        {"undefined node", OnValue("BRANPROP.INLET NODEPROP.NODE", Undefined, "uses")},
        {"well opened where it isn't completed",
            OnValue("WELOPEN.K COMPLUMP.K1 WPIMULT.K", Constant("3"), "record")},
        {"undefined quantity in an action", OnValue("ACTIONX.LEFT", Undefined)},
        {"condition on an undefined well", OnValue("ACTIONX.WORDS", UndefinedName)},
        {"group of a reinjection undefined", OnValue("GCONINJE.REINGRP GCONINJE.VREPGRP", Undefined)},
        {"path to no file", MisspellPath},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust
