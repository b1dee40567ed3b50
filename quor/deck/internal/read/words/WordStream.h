#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/words/DeckText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace Veld::Quor::Core::Decks {

/// The words of one keyword's data, one after another: a repeated word comes as often as its count says. Bad
/// repeat counts are reported here.
class WordStream {
public:
    /// What comes next.
    enum class Got {
        Value, ///< `GetWord` is it
        Default, ///< `GetWord` is where it is written
        Slash,
        Stop, ///< a keyword, or the end of the deck
    };

    // What a few bytes of text may grow to where no size bounds it.
    static constexpr long long mostRecords = 10'000;
    static constexpr long long mostValues = 1'000'000;

    /// After how many repeated values it is asked whether the read is cancelled.
    static constexpr std::size_t stride = std::size_t(1) << 20;

    /// Of what may be more than a number.
    static constexpr std::size_t weight = 4;

    /// `maxRepeatedValues`: as in `ReadOptions`.
    WordStream(DeckText& text, FindingReporter& reporter, std::size_t maxRepeatedValues)
        : text_(text)
        , reporter_(reporter)
        , maxRepeatedValues_(maxRepeatedValues)
    {
    }

    /// The text continues after `keyword`.
    void Begin(const Token& keyword);

    Got Next();
    /// The same, and it comes again.
    Got Peek();
    /// The last word comes again as the head of a keyword: nothing of the data was taken after the word
    /// before.
    void GiveBack();
    /// Takes all up to the next slash, and that too; `Stop` if there is none. Nothing is reported.
    Got SkipToSlash();

    /// The last word, without its repeat count.
    const Token& GetWord() const { return word_; }
    const TextRange& GetRange() const { return word_.range; }
    /// After a slash, where a value that is missing before it would be; that may be the end of the line.
    TextRange GetMissingRange() const { return endsByLine_ ? GetEnd() : GetRange(); }
    /// How often the last word comes again.
    long long GetRepeats() const { return repeats_; }
    /// The last word counts as taken so often.
    long long TakeRepeats() { return std::exchange(repeats_, 0) + 1; }
    /// Whether the last word may make so many values more than one; false, and reported, if the keyword or
    /// the deck has as many as it may.
    bool MayRepeat(std::size_t values);
    /// The same for repeated defaults; nothing is reported.
    bool MayRepeatDefaults(std::size_t count);
    /// Whether the last word is a lone asterisk, which may be a pattern.
    bool IsAsterisk() const
    {
        return word_.kind == Token::Kind::Word && word_.range.length == 1 && isDefault_;
    }
    /// Whether it is a blank text in quotes.
    bool IsBlank() const { return word_.kind == Token::Kind::Quoted && isDefault_; }
    /// It stands for a default, and is to be read as text.
    void TakeAsText();
    /// The bare word or slash that comes next; null if it is anything else.
    const Token* PeekBare();
    /// Takes it; no values are counted.
    void TakeBare() { SetLast(text_.NextData().range); }

    /// A line was taken from the text.
    void TakeLine(const Token& line);
    /// Words were taken from the text, `last` is the last of them.
    void TakePlain(std::size_t count, const TextRange& last);
    /// So was the slash after them.
    void TakeSlash(const Token& slash);
    /// The last word, where it was taken from the text.
    void SetLast(const TextRange& range);

    /// True for the first call since the last word came: one word is reported once, however often it comes.
    bool MayReport() { return !std::exchange(isReported_, true); }

    /// Sets, and returns what was set before.
    long long SetLongestRepeat(long long count) { return std::exchange(longestRepeat_, count); }
    /// Whether the reader takes the repeats of a word together, and asks itself whether it may make them.
    /// Sets, and returns what was set before.
    bool SetTakesTogether(bool takesTogether) { return std::exchange(takesTogether_, takesTogether); }
    /// Whether the end of the line is a slash. Sets, and returns what was set before.
    bool SetOneLine(bool isOneLine) { return std::exchange(isOneLine_, isOneLine); }
    bool IsOneLine() const { return isOneLine_; }

    /// Words and lines that were taken so far, repeated ones each time.
    std::size_t GetTaken() const { return taken_; }
    const TextRange& GetLast() const { return last_; }
    /// An empty range at the end of the last word.
    TextRange GetEnd() const { return {last_.file, last_.offset + last_.length, 0}; }
    /// The turns of the text before that.
    std::size_t GetTurns() const { return lastTurns_; }
    /// The word before the last slash.
    const TextRange& GetLastBeforeSlash() const { return lastBeforeSlash_; }

private:
    bool IsLineOver() const { return isOneLine_ && text_.IsAtLineEnd(); }
    Got GotRepeated() const { return isDefault_ ? Got::Default : Got::Value; }
    void TakeRepeat();
    /// How many values repeats may make.
    struct Limits {
        std::size_t inKeyword;
        std::size_t inDeck;
    };
    Limits GetLimits() const;
    TextRange GetRepeatRange() const;
    std::string GetWritten() const;

    DeckText& text_;
    FindingReporter& reporter_;
    std::size_t maxRepeatedValues_;
    std::size_t made_ = 0; // values of repeats, in the whole deck
    std::size_t madeInKeyword_ = 0; // of these, in the keyword
    std::string_view keyword_;

    Token word_;
    long long repeats_ = 0; // of `word_`, still to come
    bool endsByLine_ = false; // the last slash was the end of a line
    bool isDefault_ = false; // `word_` stands for a default
    bool isReported_ = false; // `word_`
    long long longestRepeat_ = mostRecords;
    bool takesTogether_ = false;
    bool isOneLine_ = false;
    std::size_t taken_ = 0;
    TextRange last_;
    TextRange lastBefore_; // of `Next`
    TextRange lastBeforeSlash_;
    std::size_t lastTurns_ = 0;
};

} // namespace Veld::Quor::Core::Decks
