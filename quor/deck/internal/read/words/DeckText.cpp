#include "quor/deck/internal/read/words/DeckText.h"

#include "quor/deck/ReadOptions.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// The keyword at the start of the line that counts whatever is after it.
const Entry* FindStructure(std::string_view line, std::string_view word, const Vocabulary& vocabulary)
{
    const Entry* const entry = vocabulary.FindStructure(word);
    const bool isWhole = line.size() == word.size() || IsSeparator(line[word.size()]);
    return entry && (isWhole || entry->role != KeywordDeckRole::Section) ? entry : nullptr;
}

} // namespace

DeckText::DeckText(const std::string& path, const DeckSource& source, const Target& target,
    Vocabulary& vocabulary, DeckFiles& files, FindingReporter& reporter)
    : source_(source)
    , folder_(std::filesystem::path(path).parent_path())
    , bounds_(folder_)
    , target_(target)
    , vocabulary_(vocabulary)
    , files_(files)
    , reporter_(reporter)
{
    EnterDeck(path);
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
    bool mayKeywordStand = true; // names of wells and groups are before a slash
    while (SkipToText()) {
        if (IsAtLineStart() && IsLetter(*position_)) {
            const std::string_view line = GetLine();
            const auto lone = FindLoneWord(line);
            const std::string_view word = FindLeadingWord(line);
            const Entry* const entry = vocabulary_.Find(word);
            const bool isKeyword = (lone && !lone->hasSlash) || FindStructure(line, word, vocabulary_);
            if (entry && isKeyword) {
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

void DeckText::GiveBack(const TextRange& word)
{
    hasPeeked_ = false;
    position_ = begin_ + word.offset;
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

/// The keyword that the word at the start of a line is where data are expected; null if it is none.
const Entry* DeckText::FindLineStart(std::string_view line, std::string_view word)
{
    if (const Entry* const entry = FindStructure(line, word, vocabulary_))
        return entry;
    const auto lone = FindLoneWord(line);
    return lone && !lone->hasSlash ? vocabulary_.Find(word) : nullptr;
}

bool DeckText::SkipToPlainData()
{
    if (hasPeeked_ || isEnded_)
        return false;
    while (position_ != end_ && IsSeparator(*position_))
        ++position_;
    if (position_ == end_ || !IsLetter(*position_) || !IsAtLineStart())
        return position_ != end_;
    const std::string_view line = GetLine();
    return !FindLineStart(line, FindLeadingWord(line));
}

/// Where data are expected: takes a keyword that belongs to the text itself, and reports so; finds any other
/// one, which has to be alone on its line unless it begins a section.
bool DeckText::TakeLineStart(Token& keyword)
{
    if (!IsLetter(*position_) || !IsAtLineStart())
        return false;
    const std::string_view line = GetLine();
    const std::string_view word = FindLeadingWord(line);
    const Entry* const entry = FindLineStart(line, word);
    if (!entry)
        return false;
    if (TakeStructure(*entry, word))
        return true;
    keyword = {Token::Kind::Keyword, RangeOf(word), word, entry};
    return false;
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
    CheckIntact();
    ReportProgress();
    CheckCancelled();
}

/// Of the file being read. Zero bytes stand for what another program cut off.
void DeckText::CheckIntact() const
{
    if (!files_.Get(GetFile()).text->IsIntact())
        throw SourceError(fmt::format("can't read '{}': '{}' was cut short while it was read",
            Printable(files_.Get(0).name), Printable(files_.Get(GetFile()).name)));
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
        } else if (*position_ == '-' && SkipHyphenLine()) {
            continue;
        } else {
            return true;
        }
        if (GetOffset() - released_ >= stride)
            Release();
    }
    return false;
}

/// A comment with one hyphen in place of two: a lone one at the start of a line.
bool DeckText::SkipHyphenLine()
{
    const TextRange range = RangeOf(GetRest().substr(0, 1));
    if (FindDataWord(GetRest()).length != 1 || !IsFirstOnLine(range))
        return false;
    ReportOnce(range, Code::StrayText, "unexpected hyphen; a comment starts with '--'", "write '--'",
        {{range, "--"}});
    SkipLine();
    return true;
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
