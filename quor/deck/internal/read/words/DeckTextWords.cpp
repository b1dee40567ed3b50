#include "quor/deck/internal/read/words/DeckText.h"

#include "quor/deck/internal/read/words/CertainFixes.h"
#include "quor/deck/internal/text/OddCharacters.h"

#include <fmt/format.h>

#include <cstddef>
#include <utility>

// The words of a deck's text.

namespace Veld::Quor::Core::Decks {

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
    else if (!word.isPlain || (position_ != end_ && *position_ == ','))
        CheckBare(word, token);
    if (reporter_.IsStrict() && word.IsPadded() && !word.text.empty()) {
        const char quote = position_[-1];
        ReportOnce(token.range, Code::PaddedText,
            fmt::format("blanks around the text '{}'", Shorten(word.text)), "remove the blanks",
            {{{token.range.file, token.range.offset + word.repeat.length, word.length - word.repeat.length},
                fmt::format("{0}{1}{0}", quote, word.text)}});
    }
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

/// What is read in another way than it looks: nothing more is to be reported of it.
void DeckText::CheckBare(const DataWord& word, Token& token)
{
    const auto isInNumber = [this] {
        return end_ - position_ >= 2 && *position_ == ',' && IsDigit(position_[-1]) && IsDigit(position_[1]);
    };
    if (isInNumber()) {
        while (isInNumber())
            position_ += 1 + FindDataWord(GetRest().substr(1)).length;
        const auto begin = position_ - begin_ - static_cast<std::ptrdiff_t>(token.range.offset);
        token.range.length = static_cast<std::size_t>(begin);
        token.text = files_.GetText(token.range);
        token.isOdd = true;
        ReportOnce(token.range, Code::CommaInNumber,
            fmt::format("unexpected comma in the number '{}'", Shorten(token.text)),
            "write a decimal point, or a blank between two values", {});
    }
    if (word.isPlain)
        return;
    if (auto odd = FindOddCharacter(token.text)) {
        token.isOdd = true;
        ReportOnce(token.range, Code::OddCharacter,
            fmt::format("unexpected {} in '{}'", odd->name, Shorten(token.text)),
            fmt::format("write {}", odd->instead), {{RangeOf(odd->text), odd->replacement}});
    }
}

/// With what is after it on its line.
Token DeckText::TakeSlash()
{
    const Token slash = TakeToken(Token::Kind::Slash, 1);
    if (position_ != end_ && *position_ == '\n') { // as nearly always
        ++position_;
        return slash;
    }
    NoteRemark();
    SkipLine();
    return slash;
}

Token DeckText::TakeToSlash(std::size_t count)
{
    Take(count);
    return TakeSlash();
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

} // namespace Veld::Quor::Core::Decks
