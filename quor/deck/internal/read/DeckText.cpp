#include "quor/deck/internal/read/DeckText.h"

#include "quor/deck/ReadOptions.h"
#include "quor/deck/internal/read/CertainFixes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

DeckText::DeckText(const std::string& path, const DeckSource& source, const Target& target,
    Vocabulary& vocabulary, DeckFiles& files, FindingReporter& reporter)
    : source_(source)
    , folder_(std::filesystem::path(path).parent_path())
    , target_(target)
    , vocabulary_(vocabulary)
    , files_(files)
    , reporter_(reporter)
{
    Enter({path, source.Open(path), std::nullopt, 0}, source.Identify(path));
}

// Reading

Token DeckText::NextHead()
{
    CheckCancelled();
    Unpeek();
    while (SkipToText()) {
        if (!IsAtLineStart() || !IsLetter(*position_))
            return {Token::Kind::Word, RangeOf(GetRest().substr(0, 1)), GetRest().substr(0, 1)};
        const std::string_view word = FindLeadingWord(GetLine());
        const Entry* const entry = vocabulary_.Find(word);
        if (entry && TakeStructure(*entry, word))
            continue;
        Token token = TakeToken(Token::Kind::Keyword, word.size());
        token.entry = entry;
        return token;
    }
    return {Token::Kind::End, RangeOf(GetRest().substr(0, 0)), {}};
}

void DeckText::SkipData()
{
    Unpeek();
    bool mayKeywordStand = true; // names of wells and groups stand before a slash
    while (SkipToText()) {
        if (IsAtLineStart() && IsLetter(*position_)) {
            const std::string_view line = GetLine();
            const auto lone = FindLoneWord(line);
            const std::string_view word = FindLeadingWord(line);
            const Entry* const entry = vocabulary_.Find(word);
            if (entry && (lone || vocabulary_.FindInclude(word))) {
                if (TakeStructure(*entry, word))
                    continue;
                return;
            }
            if (lone && lone->isUpper && !lone->hasSlash && mayKeywordStand)
                return;
        }
        mayKeywordStand = HasEndingSlash(GetLine());
        SkipLine();
    }
}

Token DeckText::NextData()
{
    if (!hasPeeked_)
        return ScanData();
    if (peeked_.kind != Token::Kind::Keyword && peeked_.kind != Token::Kind::End)
        hasPeeked_ = false;
    return peeked_;
}

const Token& DeckText::PeekData()
{
    if (!hasPeeked_) {
        peeked_ = ScanData();
        hasPeeked_ = true;
    }
    return peeked_;
}

/// Back to before the word that was looked at.
void DeckText::Unpeek()
{
    if (hasPeeked_ && peeked_.kind != Token::Kind::Keyword && peeked_.kind != Token::Kind::End)
        position_ = begin_ + peeked_.range.offset;
    hasPeeked_ = false;
}

Token DeckText::ScanData()
{
    while (SkipToText()) {
        if (*position_ == '/')
            return TakeSlash();
        Token keyword;
        if (TakeLineStart(keyword))
            continue;
        if (keyword.entry)
            return keyword;
        const DataWord word = FindDataWord(GetRest());
        if (word.text == "\\" && word.length == 1) {
            ReportOnce(RangeOf(word.text), Code::StrayText, "unexpected backslash; expected a slash",
                "write '/'", {{RangeOf(word.text), "/"}});
            return TakeSlash();
        }
        return TakeWord(word);
    }
    return {Token::Kind::End, RangeOf(GetRest().substr(0, 0)), {}};
}

/// Where data are expected: takes a keyword that belongs to the text itself, and reports so; finds any other
/// one, which has to stand alone on its line.
bool DeckText::TakeLineStart(Token& keyword)
{
    if (!IsLetter(*position_) || !IsAtLineStart())
        return false;
    const std::string_view line = GetLine();
    const std::string_view word = FindLeadingWord(line);
    const Entry* entry = vocabulary_.FindInclude(word);
    if (!entry) {
        const auto lone = FindLoneWord(line);
        entry = lone && !lone->hasSlash ? vocabulary_.Find(word) : nullptr;
    }
    if (!entry)
        return false;
    if (TakeStructure(*entry, word))
        return true;
    keyword = {Token::Kind::Keyword, RangeOf(word), word, entry};
    return false;
}

Token DeckText::TakeToken(Token::Kind kind, std::size_t length)
{
    const std::string_view text = GetRest().substr(0, length);
    position_ += length;
    return {kind, RangeOf(text), text};
}

/// A quote that isn't closed on its line is reported, and read as closed after the word, so that what follows
/// is still read.
Token DeckText::TakeWord(const DataWord& word)
{
    Token token = TakeToken(word.IsQuoted() ? Token::Kind::Quoted : Token::Kind::Word, word.length);
    token.repeat = word.repeat;
    if (word.IsQuoted())
        token.text = word.text;
    if (word.quotes == DataWord::Quotes::Unclosed) {
        token.isClosed = false;
        const char* const quote = word.text.data() - 1;
        ReportOnce(RangeOf({quote, word.length - word.repeat.length}), Code::UnclosedQuote,
            token.text.empty() ? "unclosed quote"
                               : fmt::format("unclosed quote before '{}'", Shorten(token.text)),
            fmt::format("add a closing {} on the same line", *quote),
            CloseQuote(RangeOf(token.text), *quote, GetLine()));
    } else if (word.quotes == DataWord::Quotes::Unopened) {
        token.text.remove_suffix(1);
        ReportOnce(token.range, Code::UnclosedQuote,
            fmt::format("unopened quote after '{}'", Shorten(token.text)),
            fmt::format("add an opening {} before the text", word.text.back()),
            OpenQuote(files_, RangeOf(token.text.substr(token.repeat.length)), word.text.back()));
    }
    return token;
}

/// With what stands after it on its line.
Token DeckText::TakeSlash()
{
    const Token slash = TakeToken(Token::Kind::Slash, 1);
    NoteRemark();
    SkipLine();
    return slash;
}

/// Even if the word is read again.
void DeckText::ReportOnce(
    const TextRange& range, Code code, std::string message, std::string hint, std::vector<TextEdit> fix)
{
    if (range.file == lastReported_.file && range.offset <= lastReported_.offset && lastReported_.length > 0)
        return;
    lastReported_ = range;
    reporter_.Report(range, code, std::move(message), std::move(hint), std::move(fix));
}

void DeckText::Take(std::size_t count)
{
    position_ += count;
    if (static_cast<std::size_t>(position_ - begin_) - released_ >= stride)
        Release();
}

/// Bytes that were read stay in the file, and needn't stay in memory.
void DeckText::Release()
{
    const std::size_t done = GetOffset();
    files_.Get(GetFile()).text->Release(released_, done);
    released_ = done;
    ReportProgress();
    CheckCancelled();
}

void DeckText::CheckCancelled() const
{
    if (isCancelled_ && isCancelled_())
        throw ReadCancelled();
}

/// Files that were left count as read whole, the one being read and those that led to it as far as they were.
void DeckText::ReportProgress()
{
    unreported_ = 0;
    if (!progress_)
        return;
    std::size_t done = left_ + GetOffset();
    for (std::size_t i = 0; i + 1 < frames_.size(); ++i)
        done += frames_[i].offset;
    progress_(done, known_);
}

TextRange DeckText::RangeOf(std::string_view part) const
{
    return {GetFile(), static_cast<std::size_t>(part.data() - begin_), part.size()};
}

/// To the next byte that is neither white nor in a comment; false at the end of the deck.
bool DeckText::SkipToText()
{
    while (!isEnded_) {
        while (position_ != end_ && IsSeparator(*position_))
            ++position_;
        if (position_ == end_) {
            if (frames_.size() == 1)
                return false;
            Leave();
        } else if (IsCommentAt(GetRest(), 0)) {
            NoteComment();
            SkipLine();
        } else {
            return true;
        }
        if (GetOffset() - released_ >= stride)
            Release();
    }
    return false;
}

std::string_view DeckText::GetLine() const
{
    const std::string_view rest = GetRest();
    std::string_view line = rest.substr(0, rest.find('\n'));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

void DeckText::SkipLine()
{
    const void* const end = std::memchr(position_, '\n', GetRest().size());
    position_ = end ? static_cast<const char*>(end) + 1 : end_;
}

} // namespace Veld::Quor::Core::Decks
