#include "tools/quor/findings/FindingFix.h"

#include "quor/deck/DeckFiles.h"
#include "quor/deck/Finding.h"
#include "tools/quor/terminal/Terminal.h"

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

FixPart::Position PositionOf(const Decks::DeckFiles& files, std::uint32_t file, std::size_t offset)
{
    const Decks::TextRange range{file, offset, 0};
    const auto [line, start] = files.LineOf(range);
    return {files.LocationOf(range).line, 1 + CountCharacters(line.substr(0, offset - start))};
}

FixPart PartOf(const Decks::DeckFiles& files, const Decks::TextEdit& edit)
{
    const Decks::TextRange& range = edit.range;
    return {files.LocationOf(range), range.length, PositionOf(files, range.file, range.offset),
        PositionOf(files, range.file, range.offset + range.length), edit.text};
}

} // namespace

std::vector<Fix> FixesOf(const Decks::Findings& findings, const Decks::DeckFiles& files)
{
    std::vector<Fix> fixes;
    for (const Decks::Finding& finding : findings) {
        Fix& fix = fixes.emplace_back();
        for (const Decks::TextEdit& edit : finding.fix)
            fix.push_back(PartOf(files, edit));
    }
    return fixes;
}

} // namespace Veld::Quor::Tools
