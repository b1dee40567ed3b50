#include "quor/deck/internal/read/words/DeckText.h"

#include "quor/deck/internal/read/words/OtherSpelling.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

// The files of a deck's text.

namespace Veld::Quor::Core::Decks {

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

/// Why a source can't return a file; empty if it does. Nothing else is called here: what a callback of the
/// host throws is the host's, even a `SourceError`.
template <class Read>
std::optional<std::string> FindFailure(Read read)
{
    try {
        read();
        return std::nullopt;
    } catch (const SourceError& error) {
        return error.what();
    }
}

} // namespace

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
    std::string identity;
    const auto identify = [&] {
        if (isOutside && isConfined_)
            throw SourceError("it is outside the folder of the deck");
        identity = source_.Identify(path);
    };
    // First, since a file that includes itself may be large and do so often.
    if (const auto reason = FindFailure(identify))
        return ReportMissing(name, text, resolved, *reason);
    if (!MayInclude(name, path, identity)) {
        missedInclusion_ = true;
        return;
    }
    std::shared_ptr<const SourceText> source;
    if (const auto reason = FindFailure([&] { source = Open(path, identity); }))
        return ReportMissing(name, text, resolved, *reason);
    Enter({path, std::move(source), statement, 0, resolved, isOutside}, identity);
    if (text.find('$') != std::string::npos)
        rightAliases_.insert(AliasIn(text));
}

/// Once for a path alias that has led to no file yet.
void DeckText::ReportMissing(
    const TextRange& name, const std::string& text, const std::string& resolved, const std::string& reason)
{
    missedInclusion_ = true;
    if (isIncluded_) // a name starts from the folder of a deck that isn't known, and so do its aliases
        return;
    const std::string message =
        fmt::format("can't read '{}': {}", Printable((folder_ / resolved).string()), reason);
    const std::string alias = text.find('$') == std::string::npos ? std::string() : AliasIn(text);
    if (!alias.empty() && rightAliases_.count(alias) == 0) {
        if (reportedAliases_.insert(alias).second)
            reporter_.Report(name, Code::IncludeMissing, message,
                fmt::format("correct the name, or the folder of '{}' in PATHS", Printable(alias)));
        return;
    }
    if (std::filesystem::path(resolved).is_absolute())
        return reporter_.Report(name, Code::IncludeMissing, message);
    const std::string other =
        bounds_.Hold((folder_ / resolved).string()) ? FindOtherSpelling(folder_, resolved) : "";
    reporter_.Report(name, Code::IncludeMissing, message,
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

std::shared_ptr<const SourceText> DeckText::Open(const std::string& path, const std::string& identity) const
{
    const auto known = texts_.find(identity);
    std::shared_ptr<const SourceText> text = known == texts_.end() ? nullptr : known->second.lock();
    if (!text)
        text = source_.Open(path);
    if (!text)
        throw SourceError("the source returned no text");
    return text;
}

void DeckText::EnterDeck(const std::string& path)
{
    std::string identity;
    std::shared_ptr<const SourceText> text;
    const auto open = [&] {
        identity = source_.Identify(path);
        text = Open(path, identity);
    };
    if (const auto reason = FindFailure(open))
        throw SourceError(fmt::format("can't read '{}': {}", Printable(path), *reason));
    Enter({path, std::move(text), std::nullopt}, identity);
}

void DeckText::Enter(DeckFile file, const std::string& identity)
{
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
