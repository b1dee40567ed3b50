#include "tools/quor/commands/UnifiedDiff.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

constexpr std::size_t context = 3;

using Lines = std::vector<std::string_view>; // each with its end

/// Lines of the text, from `first` on, that are replaced.
struct Change {
    std::size_t first;
    std::size_t count;
    std::string after;
};

Lines LinesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

/// Offsets of the lines, and the length of the text at the end.
std::vector<std::size_t> OffsetsOf(const Lines& lines)
{
    std::vector<std::size_t> offsets = {0};
    for (const std::string_view line : lines)
        offsets.push_back(offsets.back() + line.size());
    return offsets;
}

/// Leaves out the lines at both ends that stay as they are.
void Narrow(Change& change, const Lines& lines)
{
    Lines after = LinesOf(change.after);
    while (change.count > 0 && !after.empty() && after.front() == lines[change.first]) {
        after.erase(after.begin());
        ++change.first;
        --change.count;
    }
    while (change.count > 0 && !after.empty() && after.back() == lines[change.first + change.count - 1]) {
        after.pop_back();
        --change.count;
    }
    std::string rest;
    for (const std::string_view line : after)
        rest += line;
    change.after = std::move(rest);
}

/// Whole lines, ascending; edits of one line are one change.
std::vector<Change> ChangesOf(
    std::string_view before, const Lines& lines, const std::vector<Decks::TextEdit>& edits)
{
    const std::vector<std::size_t> offsets = OffsetsOf(lines);
    const auto lineAt = [&](std::size_t offset) {
        const auto next = std::upper_bound(offsets.begin(), std::prev(offsets.end()), offset);
        return next == offsets.begin() ? 0 : static_cast<std::size_t>(next - offsets.begin() - 1);
    };
    std::vector<Change> changes;
    for (std::size_t i = 0; i < edits.size();) {
        const std::size_t first = lineAt(edits[i].range.offset);
        std::size_t end = first;
        std::vector<Decks::TextEdit> inLines;
        for (; i < edits.size() && (inLines.empty() || lineAt(edits[i].range.offset) < end); ++i) {
            const Decks::TextRange& range = edits[i].range;
            end = std::max(end, lineAt(range.offset + std::max<std::size_t>(range.length, 1) - 1) + 1);
            inLines.push_back(edits[i]);
            inLines.back().range.offset -= offsets[first];
        }
        end = std::min(end, lines.size());
        const std::string_view text = before.substr(offsets[first], offsets[end] - offsets[first]);
        changes.push_back({first, end - first, ApplyEdits(text, std::move(inLines))});
        Narrow(changes.back(), lines);
    }
    return changes;
}

void AppendLines(std::string& text, char sign, const Lines& lines)
{
    for (const std::string_view line : lines) {
        text += sign;
        text += line;
        if (!line.ends_with('\n'))
            text += "\n\\ No newline at end of file\n";
    }
}

/// Lines of the old text with their changes, and what stays around these.
struct Hunk {
    std::size_t first; ///< its first line in the old text
    std::size_t oldCount;
    std::size_t newCount;
    std::string text;
};

/// Of the changes from number `next` on, those that are near each other; `next` becomes the number of the
/// first that isn't.
Hunk HunkOf(const Lines& lines, const std::vector<Change>& changes, std::size_t& next)
{
    const std::size_t first = changes[next].first - std::min(changes[next].first, context);
    Hunk hunk{first, 0, 0, {}};
    std::size_t at = first;
    const auto append = [&](char sign, std::size_t end) {
        const auto begin = lines.begin();
        AppendLines(hunk.text, sign,
            {begin + static_cast<std::ptrdiff_t>(at), begin + static_cast<std::ptrdiff_t>(end)});
        hunk.oldCount += end - at;
        hunk.newCount += sign == ' ' ? end - at : 0;
        at = end;
    };
    do {
        const Change& change = changes[next++];
        const Lines after = LinesOf(change.after);
        append(' ', change.first);
        append('-', change.first + change.count);
        AppendLines(hunk.text, '+', after);
        hunk.newCount += after.size();
    } while (next < changes.size() && changes[next].first <= at + 2 * context);
    append(' ', std::min(at + context, lines.size()));
    return hunk;
}

/// "first,count", from 1; of no lines, the line before.
std::string Span(std::size_t first, std::size_t count)
{
    return fmt::format("{},{}", count == 0 ? first : first + 1, count);
}

} // namespace

std::string UnifiedDiff(
    const std::string& name, std::string_view before, const std::vector<Decks::TextEdit>& edits)
{
    const Lines lines = LinesOf(before);
    const std::vector<Change> changes = ChangesOf(before, lines, edits);
    std::string text;
    std::size_t oldLines = 0; // in the hunks so far
    std::size_t newLines = 0;
    for (std::size_t next = 0; next < changes.size();) {
        const Hunk hunk = HunkOf(lines, changes, next);
        text += fmt::format("@@ -{} +{} @@\n", Span(hunk.first, hunk.oldCount),
            Span(hunk.first + newLines - oldLines, hunk.newCount));
        text += hunk.text;
        oldLines += hunk.oldCount;
        newLines += hunk.newCount;
    }
    return text.empty() ? text : fmt::format("--- {}\n+++ {}\n{}", name, name, text);
}

} // namespace Veld::Quor::Tools
