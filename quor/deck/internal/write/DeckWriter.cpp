#include "quor/deck/internal/write/DeckWriter.h"

#include "quor/deck/DeckSource.h"
#include "quor/deck/internal/text/LineEnds.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/write/DataWriter.h"
#include "quor/deck/internal/write/KeptText.h"

#include <algorithm>
#include <stdexcept>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Whether its data continue to the next keyword, which must then be alone on its line.
bool IsOpen(const DataPlan& plan)
{
    return plan.termination == DataPlan::Termination::NONE && plan.type != DataPlan::MDType::Raw;
}

/// The comment of a line of an inclusion, be it after hyphens or after the slash; empty if there is none.
std::string_view FindComment(std::string_view line)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (IsQuote(line[i]))
            i = std::min(line.find(line[i], i + 1), line.size());
        else if (IsCommentAt(line, i))
            return line.substr(i);
        else if (line[i] == '/' && (i == 0 || IsSeparator(line[i - 1]) || IsQuote(line[i - 1])))
            return line.substr(std::min(line.find_first_not_of(" \t", i + 1), line.size()));
    }
    return {};
}

/// What an inclusion has in comments, on lines of their own.
std::string CommentsOf(std::string_view inclusion)
{
    std::string comments;
    LineReader lines(inclusion);
    for (Line line; lines.Next(line);) {
        const std::string_view comment = FindComment(line.text);
        if (!comment.empty())
            comments.append(IsComment(comment) ? "" : "-- ").append(comment).append("\n");
    }
    return comments;
}

} // namespace

DeckWriter::DeckWriter(const DeckContents& deck, bool isNormalized)
    : deck_(deck)
    , isNormalized_(isNormalized)
    , plans_(deck.GetTarget())
    , parts_(deck.files.GetSize())
{
    AddParts();
}

void DeckWriter::AddParts()
{
    bool isOpen = false;
    for (const KeywordInstance& keyword : deck_.keywords) {
        const DataPlan* const plan = keyword.data ? &plans_.Get(*keyword.data->GetMD()) : nullptr;
        const bool hasSwitches = keyword.notes && !keyword.notes->switches.empty();
        const bool isWritten = plan && plan->type != DataPlan::MDType::Raw && keyword.isSound && !hasSwitches
            && keyword.whole.length > keyword.name.length;
        if (isWritten)
            parts_[keyword.whole.file].push_back({keyword.whole, &keyword, 0, !isOpen});
        isOpen = plan && IsOpen(*plan);
    }
    for (std::uint32_t file = 1; file < deck_.files.GetSize(); ++file) {
        const TextRange& inclusion = *deck_.files.Get(file).inclusion;
        parts_[inclusion.file].push_back({inclusion, nullptr, file, false});
    }
    for (std::vector<Part>& parts : parts_)
        std::sort(parts.begin(), parts.end(),
            [](const Part& a, const Part& b) { return a.range.offset < b.range.offset; });
}

std::string DeckWriter::WriteFile(std::uint32_t file)
{
    return Write(file, deck_.files.GetText(file).size(), false);
}

std::string DeckWriter::WriteAll()
{
    return Write(0, deck_.files.GetText(0).size(), true);
}

std::string DeckWriter::Write(std::uint32_t file, std::size_t end, bool takesInclusions)
{
    const std::string_view source = deck_.files.GetText(file);
    std::string text;
    text.reserve(end);
    std::size_t position = 0;
    for (const Part& part : parts_[file]) {
        if (!part.keyword && !takesInclusions)
            continue;
        text += source.substr(position, part.range.offset - position);
        position = part.range.offset + part.range.length;
        if (part.keyword) {
            text += Write(part);
            continue;
        }
        text += CommentsOf(deck_.files.GetText(part.range));
        text += Write(part.inclusion, deck_.files.Get(part.inclusion).end, true);
        if (text.ends_with('\n') && position < source.size())
            position = std::min(source.find('\n', position), source.size() - 1) + 1; // one line end will do
    }
    text += source.substr(position, end - position);
    return text;
}

std::string DeckWriter::Write(const Part& part)
{
    const KeywordInstance& keyword = *part.keyword;
    if (!isNormalized_)
        return Keep(keyword);
    const std::string_view source = deck_.files.GetText(keyword.whole.file);
    std::string text = WithLineEndsOf(source, WriteNormalized(keyword, part.mayShareLine));
    if (text.ends_with('\n') && part.range.offset + part.range.length == source.size())
        text += '\n'; // an empty line is one if it is ended
    return text;
}

/// A keyword whose data can't be written as they should keeps its text.
std::string DeckWriter::WriteNormalized(const KeywordInstance& keyword, bool mayShareLine)
{
    DataWriter writer(plans_.Get(*keyword.data->GetMD()), keyword.notes.get(), deck_.files);
    try {
        return writer.Write(deck_.files.GetText(keyword.name), *keyword.data, mayShareLine);
    } catch (const std::invalid_argument&) {
        return std::string(deck_.files.GetText(keyword.whole));
    }
}

std::string DeckWriter::Keep(const KeywordInstance& keyword)
{
    std::size_t remark = 0;
    if (keyword.notes && !keyword.notes->comments.empty()) {
        const DataComment& first = keyword.notes->comments.front();
        if (first.kind == CommentKind::AfterText && !IsComment(deck_.files.GetText(first.range)))
            remark = first.range.offset - keyword.whole.offset;
    }
    return KeptText(
        plans_.Get(*keyword.data->GetMD()), deck_.files.GetText(keyword.whole), keyword.name.length, remark)
        .Write();
}

} // namespace Veld::Quor::Core::Decks
