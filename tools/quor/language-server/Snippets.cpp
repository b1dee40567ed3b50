#include "tools/quor/language-server/Snippets.h"

#include "quor/metadata/IKeywordItemMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"

#include <fmt/format.h>

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

std::string ColumnsComment(const IKeywordRecordMD& record)
{
    std::string text = "--";
    for (int i = 0; i < record.GetSize() && text.size() < longestComment; ++i)
        text += ' ' + record.GetItemMD(i)->GetName();
    return EscapedForSnippet(text) + '\n';
}

std::string RecordLine(const IKeywordRecordMD& record)
{
    std::string text = " ";
    for (int i = 0; i < CountNeeded(record); ++i)
        text += fmt::format(" ${{{}:{}}}", i + 1, EscapedForSnippet(record.GetItemMD(i)->GetName()));
    return text + (record.GetTermination() == IKeywordDataMD::TerminationType::EOL ? "\n" : " /\n");
}

} // namespace

std::string SnippetOf(const IKeywordSyntax& syntax, const std::string& spelling)
{
    const std::string name = EscapedForSnippet(spelling) + '\n';
    const IKeywordDataMD* const md = syntax.GetDataMD();
    if (!md)
        return name;
    return name
        + VisitMD(*md,
            Overloaded{[](const IKeywordRecordMD& record) {
                           return record.GetSize() == 0 ? std::string("/\n")
                                                        : ColumnsComment(record) + RecordLine(record);
                       },
                [](const IKeywordListMD& list) {
                    const IKeywordDataMD* const item = list.GetItemMD();
                    const bool endsBySlash = list.GetTermination() == IKeywordDataMD::TerminationType::SLASH;
                    if (!item || item->GetType() != IKeywordDataMD::MDType::Record)
                        return std::string(endsBySlash ? "  $1 /\n" : "  $1\n");
                    const auto& record = static_cast<const IKeywordRecordMD&>(*item);
                    return ColumnsComment(record) + RecordLine(record) + (endsBySlash ? "/\n" : "");
                },
                [](const IKeywordMapMD&) { return std::string("  $1 /\n"); },
                [](const IKeywordDataMD&) { return std::string("  $1\n"); }});
}

} // namespace Veld::Quor::Tools::LanguageServer
