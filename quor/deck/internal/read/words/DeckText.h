#pragma once

#include "quor/data/PathAliases.h"
#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/ReadOptions.h"
#include "quor/deck/TextRange.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/check/KeywordValidity.h"
#include "quor/deck/internal/text/FolderBounds.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/Vocabulary.h"
#include "quor/deck/internal/text/WordText.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One word of a deck's text.
struct Token {
    enum class Kind {
        Word, ///< bare
        Quoted,
        Slash,
        Keyword, ///< at the start of a line, where data are expected: nothing was taken
        End, ///< of the deck
    };
    Kind kind = Kind::End;
    TextRange range; ///< quotes included
    std::string_view text; ///< without quotes; lasts as long as the deck's files
    const Entry* entry = nullptr; ///< of a keyword
    bool isClosed = true; ///< false: the closing quote is missing
    bool isOdd = false; ///< characters of it look like others, which was reported
    Repeat repeat = {}; ///< of a bare word at the beginning of `text`, of a quoted one before the quote
};

/// Where a comment is among what is around it.
enum class CommentKind {
    OwnLine,
    AfterText, ///< on the line of a word
    AfterSlash, ///< the rest of the line, which need not begin with hyphens
};

/// The text of a deck as one stream, whatever files it is in. Comments, inclusions, skipped blocks and
/// the end of the deck are dealt with here, within the data of a keyword as well, and not seen above.
class DeckText {
public:
    /// Called with each comment that is passed over. Empty for none.
    using CommentSink = std::function<void(const TextRange&, CommentKind)>;

    /// All but `path` must outlive it. Throws `SourceError` if the deck can't be read.
    DeckText(const std::string& path, const DeckSource& source, const Target& target, Vocabulary& vocabulary,
        DeckFiles& files, FindingReporter& reporter);

    /// What is where a keyword may be: the word at the start of a line, known or not (`Keyword`,
    /// taken), any other text (`Word`, not taken), or the end.
    Token NextHead();
    /// Passes over what is no keyword, up to a line that starts with one, or looks as if it wanted to.
    void SkipData();

    /// The next word of data; a keyword is not taken, and comes again. After a slash the rest of the line is
    /// a comment.
    Token NextData();
    /// The same, and it comes again.
    const Token& PeekData();
    /// The last word that was taken comes again.
    void GiveBack(const TextRange& word);

    /// Passes over what is between data: false if no word of data begins there after all, or may not.
    bool SkipToPlainData();
    /// Takes bytes of a line, and the slash after them.
    Token TakeToSlash(std::size_t count);

    /// Whether nothing but a comment is left of the line.
    bool IsAtLineEnd() const { return !hasPeeked_ && IsEmptyToLineEnd(GetRest()); }
    bool HasPeeked() const { return hasPeeked_; }

    /// The rest of the line, or the next line that is no comment, without blanks around it; `Keyword` or
    /// `End` if there is none. `isDirectlyAfter`: the next line counts even if it looks like a keyword,
    /// unless numbers follow it.
    Token NextLine(bool isDirectlyAfter);
    /// What is left of the line, without blanks around it.
    Token TakeRestOfLine();
    /// Whether a slash, or words in one line, are before the next keyword. A single word that `isMisspelt`
    /// says is one, or that numbers are below, is such a keyword. Nothing is taken; a file that is included
    /// isn't looked into.
    bool HasDataNext(const std::function<bool(const std::string&)>& isMisspelt);
    /// All up to a line that starts with the word, in any case of letters. `End`: the file has no such line,
    /// and all of it was taken.
    Token NextRaw(std::string_view endWord);

    /// Reports the blocks that are still open at the end.
    void Finish();

    /// For readers of long lists of numbers: the bytes of the current file that aren't read yet. A caller
    /// takes from their beginning what is neither a comment nor begins a line with a letter.
    std::string_view GetRest() const { return {position_, static_cast<std::size_t>(end_ - position_)}; }
    void Take(std::size_t count);

    /// Takes a head that was taken already for the keyword of the text itself that it should be; false if
    /// that is none.
    bool TakeAs(const Token& head, const Entry& entry);

    TextRange RangeOf(std::string_view part) const;
    /// From the range, in the file being read, to the end of its line.
    std::string_view GetLineFrom(const TextRange& range) const;
    /// Whether nothing but blanks is before the range on its line.
    bool IsFirstOnLine(const TextRange& range) const;
    /// Whether the word ends where its range does.
    bool IsWhole(const TextRange& word) const;
    /// Whether a word in upper case is alone on its line, in the first column and without a slash.
    bool IsLoneUpperWord(const TextRange& word) const;
    /// The keyword that a word alone on its line is, though blanks are before it; null if it is none.
    const Entry* FindIndentedKeyword(const TextRange& word) const;
    std::size_t GetOffset() const { return static_cast<std::size_t>(position_ - begin_); }
    std::uint32_t GetFile() const { return frames_.back().file; }
    /// How often inclusions, their ends and skipped blocks have led away from the text before.
    std::size_t GetTurns() const { return turns_; }

    /// Bytes of all files so far.
    std::size_t GetKnownSize() const { return known_; }
    std::size_t GetFileCount() const { return identities_.size(); }
    /// Whether an inclusion could not be read: what it holds is not known. Reset by the caller.
    bool MissedInclusion() const { return missedInclusion_; }
    void ForgetMissedInclusion() { missedInclusion_ = false; }

    Core::Keywords::PathAliases& GetAliases() { return aliases_; }
    void SetProgress(ReadProgress progress) { progress_ = std::move(progress); }
    /// Asked at each keyword and each stride of a long text; once it is true, `ReadCancelled` is thrown.
    void SetCancellation(ReadCancellation isCancelled) { isCancelled_ = std::move(isCancelled); }
    void CheckCancelled() const;
    /// Whether files outside the folder of the deck are not read.
    void SetConfined(bool isConfined) { isConfined_ = isConfined; }
    /// The text is one that a deck includes: it may say where it ends.
    void SetIncluded() { isIncluded_ = true; }
    void SetCommentSink(CommentSink sink) { commentSink_ = std::move(sink); }

private:
    /// After how many bytes memory is given back and progress reported.
    static constexpr std::size_t stride = std::size_t(1) << 20;

    /// A block between a skip keyword and its end.
    struct SkipBlock {
        TextRange opened;
        std::string_view keyword;
    };
    /// One file on the way from the deck down to the text being read.
    struct Frame {
        std::uint32_t file = 0;
        std::string identity; // as the source identifies it
        std::size_t offset = 0; // while an included file is read
        std::vector<SkipBlock> blocks; // open ones, outermost first
    };

    bool SkipToText();
    bool SkipHyphenLine();
    bool IsAtLineStart() const { return position_ == begin_ || position_[-1] == '\n'; }
    std::string_view GetLine() const;
    void SkipLine();
    bool TakeStructure(const Entry& entry, std::string_view word);
    void EndInclude(const Entry& entry, const TextRange& range, std::string_view word);
    void Unpeek();
    Token ScanData();
    bool TakeLineStart(Token& keyword);
    const Entry* FindLineStart(std::string_view line, std::string_view word);
    Token TakeToken(Token::Kind kind, std::size_t length);
    Token TakeWord(const DataWord& word);
    void CheckBare(const DataWord& word, Token& token);
    Token TakeSlash();
    void ReportOnce(
        const TextRange& range, Code code, std::string message, std::string hint, std::vector<TextEdit> fix);
    bool IsKeywordOfNumbers(std::string_view line);
    void NoteComment();
    void NoteRemark();
    void Release();
    void CheckIntact() const;
    void ReportProgress();

    void ReadInclude(std::string_view keyword);
    std::size_t TakeSlashBelow(std::size_t end);
    void ReportMissingName(const TextRange& keyword);
    void Include(const TextRange& statement, const TextRange& name, const std::string& text);
    void ReportMissing(const TextRange& name, const std::string& text, const std::string& resolved,
        const std::string& reason);
    void ReportAlias(const TextRange& name, const std::string& path);
    bool MayInclude(const TextRange& name, const std::string& path, const std::string& identity);
    /// Throws `SourceError`.
    std::shared_ptr<const SourceText> Open(const std::string& path, const std::string& identity) const;
    void EnterDeck(const std::string& path);
    void Enter(DeckFile file, const std::string& identity);
    void Leave();
    void ReportOpenBlocks();

    void OpenBlock(const TextRange& range, std::string_view keyword, bool isPassedOver);
    void CloseBlock(const TextRange& range, std::string_view keyword);
    void PassOver();

    const DeckSource& source_;
    std::filesystem::path folder_;
    FolderBounds bounds_;
    bool isConfined_ = false;
    bool isIncluded_ = false;
    Target target_;
    Vocabulary& vocabulary_;
    DeckFiles& files_;
    FindingReporter& reporter_;
    Core::Keywords::PathAliases aliases_;
    ReadProgress progress_;
    ReadCancellation isCancelled_; // empty: never
    CommentSink commentSink_;

    std::vector<Frame> frames_; // the deck first, then one inclusion after the other
    const char* begin_ = nullptr; // of the file being read
    const char* position_ = nullptr;
    const char* end_ = nullptr;
    std::size_t released_ = 0; // bytes of the file being read that need not stay in memory
    std::size_t left_ = 0; // bytes of the files that were left
    std::size_t known_ = 0; // bytes of all files so far
    std::size_t unreported_ = 0; // bytes of files that were left since progress was last reported
    std::size_t turns_ = 0;
    bool isEnded_ = false;
    bool hasPeeked_ = false;
    Token peeked_;
    TextRange lastReported_; // of words with odd characters or quotes, which were reported

    std::map<std::string, std::weak_ptr<const SourceText>> texts_; // by identity
    std::set<std::string> identities_;
    std::set<std::string> rightAliases_; // that have led to a file
    std::set<std::string> reportedAliases_;
    std::size_t inclusions_ = 0;
    bool missedInclusion_ = false;
};

} // namespace Veld::Quor::Core::Decks
