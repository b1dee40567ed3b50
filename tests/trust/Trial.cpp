#include "tests/trust/Trial.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <set>

namespace Veld::Quor::Trust {

using namespace Core::Decks;

namespace {

/// Lines of a changed file.
struct Lines {
    std::string file;
    std::size_t first;
    std::size_t last;
};

/// The texts of the files of a deck with a mistake.
class ChangedDeck {
public:
    ChangedDeck(const SampleDeck& deck, const Mistake& mistake)
        : deck_(deck)
        , mistake_(mistake)
    {
        std::set<std::uint32_t> files;
        for (const TextEdit& edit : mistake.edits)
            files.insert(edit.range.file);
        for (const std::uint32_t file : files)
            source_->Set(NameOf(file), ApplyEdits(deck.GetText(file), EditsOf(file)));
    }

    const std::shared_ptr<MemorySource>& GetSource() const { return source_; }

    /// Where findings are right.
    std::vector<Lines> GetPlaces() const
    {
        std::vector<Lines> places;
        for (const TextEdit& edit : mistake_.edits)
            places.push_back(LinesOf(edit.range.file, Moved(edit.range, false), edit.text.size()));
        for (const TextRange& range : mistake_.places) {
            const TextRange end{range.file, range.offset + range.length, 0};
            const std::size_t begin = Moved(range, true);
            places.push_back(
                LinesOf(range.file, begin, Moved(end, true) - std::min(begin, Moved(end, true))));
        }
        return places;
    }

private:
    const std::string& NameOf(std::uint32_t file) const { return deck_.GetDeck().GetFiles().Get(file).name; }

    std::vector<TextEdit> EditsOf(std::uint32_t file) const
    {
        std::vector<TextEdit> edits;
        std::copy_if(mistake_.edits.begin(), mistake_.edits.end(), std::back_inserter(edits),
            [&](const TextEdit& edit) { return edit.range.file == file; });
        return edits;
    }

    /// Where a position of the old text is in the new one. `isAfter`: after what is inserted there.
    std::size_t Moved(const TextRange& position, bool isAfter) const
    {
        std::size_t offset = position.offset;
        for (const TextEdit& edit : mistake_.edits) {
            const std::size_t end = edit.range.offset + edit.range.length;
            if (edit.range.file == position.file && end <= position.offset
                && (isAfter || edit.range.offset < position.offset))
                offset += edit.text.size() - edit.range.length;
        }
        return offset;
    }

    Lines LinesOf(std::uint32_t file, std::size_t offset, std::size_t length) const
    {
        const std::string text = ApplyEdits(deck_.GetText(file), EditsOf(file));
        const auto lineAt = [&](std::size_t at) {
            return 1
                + static_cast<std::size_t>(std::count(text.begin(),
                    text.begin() + static_cast<std::ptrdiff_t>(std::min(at, text.size())), '\n'));
        };
        return {NameOf(file), lineAt(offset), lineAt(offset + (length > 0 ? length - 1 : 0))};
    }

    const SampleDeck& deck_;
    const Mistake& mistake_;
    std::shared_ptr<MemorySource> source_ = std::make_shared<MemorySource>(std::make_shared<FileSource>());
};

bool IsAt(const Finding& finding, const std::vector<Lines>& places)
{
    return std::any_of(places.begin(), places.end(), [&](const Lines& lines) {
        return lines.file == finding.location.file && lines.first <= finding.location.line
            && finding.location.line <= lines.last;
    });
}

std::string Shortened(std::string text)
{
    for (char& byte : text)
        byte = byte == '\n' ? '|' : byte;
    return text.size() > 100 ? text.substr(0, 100) + "..." : text;
}

std::string TextOf(const SampleDeck& deck, const Mistake& mistake, const std::vector<Lines>& places,
    const Findings& findings)
{
    std::string text;
    for (std::size_t i = 0; i < mistake.edits.size() && i < 3; ++i) {
        const TextEdit& edit = mistake.edits[i];
        text += fmt::format("    {}:{}: '{}' -> '{}'\n", places[i].file, places[i].first,
            Shortened(std::string(deck.GetText(edit.range))), Shortened(edit.text));
    }
    for (std::size_t i = 0; i < findings.GetKept().size() && i < 5; ++i)
        text += "      " + ToString(findings.GetKept()[i]) + "\n";
    return text;
}

} // namespace

Trial Try(const SampleDeck& deck, const Mistake& mistake, bool isStrict, const DeckLanguage& language)
{
    const ChangedDeck changed(deck, mistake);
    const auto options =
        ReadOptions().SetTarget(deck.GetTarget()).SetSource(changed.GetSource()).SetStrict(isStrict);
    const Findings findings = Deck::Read(deck.GetPath(), language, options).GetFindings().Fold(200);
    const std::vector<Lines> places = changed.GetPlaces();
    Trial trial{Outcome::Several, TextOf(deck, mistake, places, findings)};
    if (findings.GetKept().empty())
        trial.outcome = Outcome::Silent;
    else if (findings.GetKept().size() == 1)
        trial.outcome = IsAt(findings.GetKept().front(), places) ? Outcome::AtPlace : Outcome::Elsewhere;
    return trial;
}

} // namespace Veld::Quor::Trust
