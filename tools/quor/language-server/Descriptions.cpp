#include "tools/quor/language-server/Descriptions.h"

#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/ModeTable.h"
#include "tools/quor/tree/ModeWords.h"
#include "tools/quor/tree/NodeTexts.h"
#include "tools/quor/tree/ScalarTexts.h"
#include "tools/quor/tree/TreeText.h"
#include "tools/quor/tree/ValidityTable.h"

#include <fmt/format.h>

#include <cctype>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;

namespace {

constexpr std::size_t width = 90; // of tables

/// Nothing for an empty text.
std::string Line(const char* label, const std::string& text)
{
    return text.empty() ? "" : fmt::format("- {}: {}\n", label, Escaped(text));
}

std::string Paragraph(const std::string& text)
{
    return text.empty() ? "" : Escaped(text) + "\n\n";
}

std::string FactsText(const IKeywordDataMD& md, const ModeTable& keyword, UnitSystem::Enum units)
{
    const ScalarTexts texts = TextsOf(md, keyword, units);
    return Line("type", TypeWord(md.GetType())) + Line("unit", texts.unit)
        + Line("default", texts.defaultText) + Line("default by simulator", texts.otherDefaults)
        + Line("limits", texts.limits) + Line("choices", texts.choices);
}

} // namespace

std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool beginsTag = text[i] == '<' && i + 1 < text.size()
            && std::isalpha(static_cast<unsigned char>(text[i + 1])) != 0;
        if (beginsTag || std::string_view("\\`*_[").find(text[i]) != std::string_view::npos)
            escaped += '\\';
        escaped += text[i];
    }
    return escaped;
}

std::string DescriptionOf(const IKeywordSyntax& syntax, const std::string& spelling, UnitSystem::Enum units)
{
    return fmt::format("**{}**\n\n{}```text\n{}{}```\n", Escaped(spelling),
        Paragraph(syntax.GetDescription()), ValidityText(syntax, spelling), TreeText(syntax, width, units));
}

std::string DescriptionOf(const IKeywordSyntax& syntax, const IKeywordRecordMD& record, int item,
    const IKeywordDataMD& md, UnitSystem::Enum units)
{
    const IKeywordDataMD& itemMD = *record.GetItemMD(item);
    const ModeTable keyword = ModesOf(syntax);
    std::string text = fmt::format(
        "**{}**, item {} of {}\n\n", Escaped(itemMD.GetName()), item + 1, Escaped(syntax.GetName()));
    text += Paragraph(itemMD.GetDescription());
    if (&md != &itemMD)
        text += Paragraph(md.GetDescription());
    return text + FactsText(md, keyword, units)
        + Line("validity",
            RestrictionsText(
                ModesOf(record.GetValidity(item)), ModesOf(record.GetUnsupportedBy(item)), keyword));
}

std::string DescriptionOfElement(
    const IKeywordSyntax& syntax, const IKeywordDataMD& md, UnitSystem::Enum units)
{
    return fmt::format("**{}**\n\n{}", Escaped(syntax.GetName()), Paragraph(syntax.GetDescription()))
        + Paragraph(md.GetDescription()) + FactsText(md, ModesOf(syntax), units);
}

} // namespace Veld::Quor::Tools::LanguageServer
