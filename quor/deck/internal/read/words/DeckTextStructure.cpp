#include "quor/deck/internal/read/words/DeckText.h"

#include "quor/deck/internal/read/words/OtherSpelling.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

// The files of a deck's text.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

constexpr std::size_t deepestInclusion = 100;
/// Files that include others twice over can grow a small deck beyond all bounds.
constexpr std::size_t mostInclusions = 100'000;

/// The path alias in the name of a file, which has one.
std::string AliasIn(const std::string& path)
{
    const std::string rest = path.substr(path.find('$'));
    return rest.substr(0, rest.find_first_of("/\\"));
}

} // namespace

/// Takes a keyword that belongs to the text itself; false, and nothing taken, for any other.
bool DeckText::TakeStructure(const Entry& entry, std::string_view word)
{
    const TextRange range = RangeOf(word);
    switch (entry.role) {
    case KeywordDeckRole::End:
        position_ += word.size();
        isEnded_ = true;
        return true;
    case KeywordDeckRole::EndInclude:
        EndInclude(entry, range, word);
        return true;
    case KeywordDeckRole::Include:
        ReadInclude(word);
        return true;
    case KeywordDeckRole::Skip:
        position_ += word.size();
        OpenBlock(range, entry.spelling, true);
        return true;
    case KeywordDeckRole::EndSkip:
        position_ += word.size();
        CloseBlock(range, entry.spelling);
        return true;
    case KeywordDeckRole::Section:
        return false;
    case KeywordDeckRole::Ordinary:
        if (!entry.skipsFor)
            return false;
        position_ += word.size();
        OpenBlock(range, entry.spelling, *entry.skipsFor == target_.simulator);
        return true;
    }
    return false;
}

void DeckText::EndInclude(const Entry& entry, const TextRange& range, std::string_view word)
{
    if (frames_.size() > 1) {
        files_.SetEnd(GetFile(), range.offset);
        Leave();
        return;
    }
    position_ += word.size();
    if (isIncluded_) {
        isEnded_ = true;
        return;
    }
    reporter_.Report(range, Code::StrayEndinc,
        fmt::format("{} has no effect outside an included file", entry.spelling), "use END to end the deck");
    ++turns_;
}

bool DeckText::TakeAs(const Token& head, const Entry& entry)
{
    Unpeek();
    position_ = begin_ + head.range.offset;
    return TakeStructure(entry, head.text);
}

/// The name is after the keyword or on a line below it.
void DeckText::ReadInclude(std::string_view word)
{
    const TextRange keyword = RangeOf(word);
    position_ += word.size();
    ++turns_;
    auto token = FindFileName(GetLine(), 0);
    while (!token) {
        SkipLine();
        if (position_ == end_)
            break;
        const auto lone = FindLoneWord(GetLine());
        if (lone && !lone->hasSlash && vocabulary_.Find(lone->word))
            break;
        token = FindFileName(GetLine(), 0);
    }
    if (!token || token->name.empty()) {
        if (token)
            SkipLine();
        ReportMissingName(keyword);
        return;
    }
    const TextRange name = RangeOf(GetLine().substr(token->offset, token->length));
    const std::string_view rest = GetLine().substr(token->offset + token->length);
    std::size_t end = GetOffset() + GetLine().size();
    SkipLine();
    if (!HasEndingSlash(rest))
        end = TakeSlashBelow(end);
    const TextRange statement{keyword.file, keyword.offset, end - keyword.offset};
    if (token->isClosed) {
        Include(statement, name, std::string(token->name));
        return;
    }
    reporter_.Report(name, Code::IncludeName, "unclosed quote in the name of the included file",
        "add a closing quote on the same line");
    missedInclusion_ = true;
}

void DeckText::ReportMissingName(const TextRange& keyword)
{
    reporter_.Report(keyword, Code::IncludeName, "missing name of the included file",
        "write the name in quotes, followed by a slash");
    missedInclusion_ = true;
}

void DeckText::Include(const TextRange& statement, const TextRange& name, const std::string& text)
{
    std::string resolved;
    if (aliases_.resolvePathAliases(text, resolved)) {
        if (!isIncluded_)
            ReportAlias(name, resolved);
        missedInclusion_ = true;
        return;
    }
    const std::string path = (folder_ / resolved).string(); // an absolute name stays as it is
    const bool isOutside = !bounds_.Hold(path);
    try {
        if (isOutside && isConfined_)
            throw SourceError("it is outside the folder of the deck");
        // First, since a file that includes itself may be large and do so often.
        const std::string identity = source_.Identify(path);
        if (!MayInclude(name, path, identity)) {
            missedInclusion_ = true;
            return;
        }
        std::shared_ptr<const SourceText> source = texts_[identity].lock();
        if (!source)
            source = source_.Open(path);
        Enter({path, std::move(source), statement, 0, resolved, isOutside}, identity);
        if (text.find('$') != std::string::npos)
            rightAliases_.insert(AliasIn(text));
    } catch (const SourceError& error) {
        missedInclusion_ = true;
        if (isIncluded_) // a name starts from the folder of a deck that isn't known, and so do its aliases
            return;
        ReportMissing(
            name, text, resolved, fmt::format("can't read '{}': {}", Printable(path), error.what()));
    }
}

/// Once for a path alias that has led to no file yet.
void DeckText::ReportMissing(
    const TextRange& name, const std::string& text, const std::string& resolved, std::string message)
{
    const std::string alias = text.find('$') == std::string::npos ? std::string() : AliasIn(text);
    if (!alias.empty() && rightAliases_.count(alias) == 0) {
        if (reportedAliases_.insert(alias).second)
            reporter_.Report(name, Code::IncludeMissing, std::move(message),
                fmt::format("correct the name, or the folder of '{}' in PATHS", Printable(alias)));
        return;
    }
    if (std::filesystem::path(resolved).is_absolute())
        return reporter_.Report(name, Code::IncludeMissing, std::move(message));
    const std::string other =
        bounds_.Hold((folder_ / resolved).string()) ? FindOtherSpelling(folder_, resolved) : "";
    reporter_.Report(name, Code::IncludeMissing, std::move(message),
        other.empty() || other == resolved ? "a relative name starts from the folder of the deck"
                                           : fmt::format("did you mean '{}'?", Printable(other)));
}

/// Once for each alias.
void DeckText::ReportAlias(const TextRange& name, const std::string& path)
{
    const std::string alias = AliasIn(path);
    if (!reportedAliases_.insert(alias).second)
        return;
    std::string of;
    aliases_.resolvePathAliases(alias, of);
    const bool isLoop = of.size() > alias.size() && of.find(alias) != std::string::npos;
    const bool isLong = path.size() + of.size() > Keywords::PathAliases::maxLength;
    if (isLoop)
        reporter_.Report(name, Code::UnknownAlias,
            fmt::format("path alias '{}' refers to itself: '{}'", Shorten(alias), Shorten(of)),
            "correct the folder of the alias in PATHS");
    else if (isLong)
        reporter_.Report(name, Code::UnknownAlias,
            fmt::format("too long file name with the path alias '{}' (expected at most {} bytes)",
                Shorten(alias), std::size_t(Keywords::PathAliases::maxLength)),
            "correct the folders of the aliases in PATHS");
    else
        reporter_.Report(name, Code::UnknownAlias,
            fmt::format("unknown path alias '{}' in '{}'", Shorten(alias), Shorten(path)),
            "define the alias with PATHS");
}

bool DeckText::MayInclude(const TextRange& name, const std::string& path, const std::string& identity)
{
    const bool isLoop = std::any_of(
        frames_.begin(), frames_.end(), [&](const Frame& frame) { return frame.identity == identity; });
    if (isLoop) {
        reporter_.Report(name, Code::IncludeLoop, fmt::format("file '{}' includes itself", Printable(path)));
        return false;
    }
    if (frames_.size() > deepestInclusion) {
        reporter_.Report(name, Code::IncludeDepth,
            fmt::format("too many nested included files (expected at most {})", deepestInclusion));
        return false;
    }
    if (++inclusions_ > mostInclusions) {
        reporter_.Report(name, Code::IncludeCount,
            fmt::format("too many included files (expected at most {}); the rest of the deck is not read",
                mostInclusions));
        isEnded_ = true; // each further one would say the same
        return false;
    }
    return true;
}

void DeckText::Enter(DeckFile file, const std::string& identity)
{
    if (!file.text)
        throw SourceError("the source returned no text");
    ++turns_;
    if (!frames_.empty()) {
        frames_.back().offset = GetOffset();
        reporter_.ReportBadSuppressions(GetFile(), GetOffset());
    }
    identities_.insert(identity);
    texts_[identity] = file.text;
    const bool isWide = file.text->IsWide();
    frames_.push_back({files_.Add(std::move(file)), identity, 0, {}});
    const std::string_view text = files_.GetText(GetFile());
    begin_ = position_ = text.data();
    end_ = begin_ + text.size();
    released_ = 0;
    known_ += text.size();
    if (!isWide)
        return;
    reporter_.Report({GetFile(), 0, 0}, Code::Encoding, "unsupported file encoding UTF-16",
        "save the file as plain text or UTF-8");
    missedInclusion_ = true;
    position_ = end_;
}

/// Back to the file that included this one.
void DeckText::Leave()
{
    ++turns_;
    CheckIntact();
    ReportOpenBlocks();
    reporter_.ReportBadSuppressions(GetFile());
    const auto size = static_cast<std::size_t>(end_ - begin_);
    left_ += size;
    unreported_ += size;
    frames_.pop_back();
    const std::string_view text = files_.GetText(GetFile());
    begin_ = text.data();
    position_ = begin_ + frames_.back().offset;
    end_ = begin_ + text.size();
    released_ = frames_.back().offset;
    if (unreported_ >= stride) // many small files
        ReportProgress();
}

void DeckText::Finish()
{
    while (frames_.size() > 1)
        Leave();
    CheckIntact();
    ReportOpenBlocks();
    frames_.back().blocks.clear();
    for (std::uint32_t file = 0; file < files_.GetSize();
         ++file) // also those that ended while nothing is reported
        reporter_.ReportBadSuppressions(file);
    ReportProgress();
}

} // namespace Veld::Quor::Core::Decks
