#include "tools/quor/language-server/Snippets.h"

#include "quor/metadata/IKeywordItemMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;

namespace {

constexpr std::size_t longestComment = 110;

std::string EscapedForSnippet(const std::string& text)
{
    std::string escaped;
    for (const char c : text) {
        if (std::string_view("\\$},|").find(c) != std::string_view::npos)
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

bool MayBeLeftOut(const IKeywordRecordMD& record, int item)
{
    const IKeywordDataMD& md = *record.GetItemMD(item);
    return record.IsOptional(item)
        || (KeywordUtils::IsItemMDType(&md)
            && static_cast<const IKeywordItemMD&>(md).IsDefaultSpecified(SimulatorType::Any));
}

/// Items up to the last that must be given or identifies the record; at least one.
int CountNeeded(const IKeywordRecordMD& record)
{
    int needed = 1;
    for (int i = 0; i < record.GetSize(); ++i) {
        if (record.IsIdentifier(i) || !MayBeLeftOut(record, i))
            needed = i + 1;
    }
    return std::min(needed, record.GetSize());
}

bool IsFlat(const IKeywordRecordMD& record)
{
    for (int i = 0; i < record.GetSize(); ++i) {
        if (!KeywordUtils::IsItemMDType(record.GetItemMD(i)))
            return false;
    }
    return true;
}

std::string ColumnsComment(const IKeywordRecordMD& record)
{
    std::string text = "--";
    for (int i = 0; i < record.GetSize() && text.size() < longestComment; ++i)
        text += ' ' + record.GetItemMD(i)->GetName();
    return EscapedForSnippet(text) + '\n';
}

/// Lines with placeholders, counted on.
class SnippetLines {
public:
    std::string LinesOf(const IKeywordDataMD& md)
    {
        return VisitMD(md,
            Overloaded{[this](const IKeywordRecordMD& record) { return LinesOfRecord(record); },
                [this](const IKeywordListMD& list) { return LinesOfList(list); },
                [this](const IKeywordMapMD&) { return fmt::format("  ${} /\n", ++last_); },
                [this](const IKeywordDataMD&) { return fmt::format("  ${}\n", ++last_); }});
    }

private:
    std::string LinesOfRecord(const IKeywordRecordMD& record)
    {
        if (record.GetSize() == 0)
            return "/\n";
        std::string text;
        if (!IsFlat(record)) {
            for (int i = 0; i < record.GetSize(); ++i)
                text += LinesOf(*record.GetItemMD(i));
            return text;
        }
        text = ColumnsComment(record) + ' ';
        for (int i = 0; i < CountNeeded(record); ++i)
            text += fmt::format(" ${{{}:{}}}", ++last_, EscapedForSnippet(record.GetItemMD(i)->GetName()));
        return text + (record.GetTermination() == IKeywordDataMD::TerminationType::SLASH ? " /\n" : "\n");
    }

    std::string LinesOfList(const IKeywordListMD& list)
    {
        const IKeywordDataMD* const item = list.GetItemMD();
        const bool endsBySlash = list.GetTermination() == IKeywordDataMD::TerminationType::SLASH;
        if (!item || KeywordUtils::IsItemMDType(item))
            return fmt::format("  ${}{}\n", ++last_, endsBySlash ? " /" : "");
        return LinesOf(*item) + (endsBySlash ? "/\n" : "");
    }

    int last_ = 0; // placeholder
};

} // namespace

std::string SnippetOf(const IKeywordSyntax& syntax, const std::string& spelling)
{
    const std::string name = EscapedForSnippet(spelling) + '\n';
    const IKeywordDataMD* const md = syntax.GetDataMD();
    return md ? name + SnippetLines().LinesOf(*md) : name;
}

} // namespace Veld::Quor::Tools::LanguageServer
