#include "quor/deck/internal/read/words/WordStream.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace Veld::Quor::Core::Decks {

namespace {

/// Leaves room for sums.
constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max() / 2;

} // namespace

void WordStream::Begin(const Token& keyword)
{
    keyword_ = keyword.text;
    repeats_ = 0;
    madeInKeyword_ = 0;
    SetLast(keyword.range);
}

WordStream::Got WordStream::Next()
{
    if (repeats_ > 0) {
        --repeats_;
        if (++taken_ % stride == 0)
            text_.CheckCancelled();
        return GotRepeated();
    }
    endsByLine_ = IsLineOver();
    if (endsByLine_)
        return Got::Slash;
    word_ = text_.NextData();
    isDefault_ = false;
    isReported_ = word_.isOdd || !word_.isClosed;
    if (word_.kind == Token::Kind::Keyword || word_.kind == Token::Kind::End)
        return Got::Stop;
    ++taken_;
    const bool isSlash = word_.kind == Token::Kind::Slash;
    if (isSlash)
        lastBeforeSlash_ = last_;
    lastBefore_ = last_;
    SetLast(word_.range);
    if (isSlash)
        return Got::Slash;
    if (word_.repeat.length > 0)
        TakeRepeat();
    if (word_.kind == Token::Kind::Quoted && word_.text.empty() && word_.isClosed)
        isDefault_ = true;
    return GotRepeated();
}

void WordStream::GiveBack()
{
    text_.GiveBack(word_.range);
    last_ = lastBefore_;
    --taken_;
}

void WordStream::TakeAsText()
{
    if (IsAsterisk())
        word_.text = {word_.text.data() - 1, 1};
    isDefault_ = false;
}

/// The word keeps what is after its count.
void WordStream::TakeRepeat()
{
    Repeat repeat = word_.repeat;
    const bool isQuoted = word_.kind == Token::Kind::Quoted;
    if (repeat.count == 0 || repeat.count > longestRepeat_) {
        reporter_.Report(GetRepeatRange(), Code::BadRepeat,
            fmt::format("{}: invalid repeat count in '{}' (expected 1 to {})", keyword_, GetWritten(),
                longestRepeat_));
        repeat.count = 1;
    }
    if (!takesTogether_ && !MayRepeat(weight * static_cast<std::size_t>(repeat.count - 1)))
        repeat.count = 1;
    repeats_ = repeat.count - 1;
    if (!isQuoted)
        word_.text.remove_prefix(repeat.length);
    isDefault_ = !isQuoted && word_.text.empty();
}

/// Of the last word, without what is in quotes.
TextRange WordStream::GetRepeatRange() const
{
    TextRange range = word_.range;
    if (word_.kind == Token::Kind::Quoted)
        range.length = word_.repeat.length;
    return range;
}

std::string WordStream::GetWritten() const
{
    const TextRange range = GetRepeatRange();
    return Shorten(text_.GetLineFrom(range).substr(0, range.length));
}

WordStream::Limits WordStream::GetLimits() const
{
    constexpr std::size_t perByte = 100;
    constexpr std::size_t keywords = 20; // that may have as many as one may
    const std::size_t ofText = perByte * text_.GetKnownSize();
    const std::size_t ofOptions = std::min(maxRepeatedValues_, unlimited / keywords);
    return {ofText + ofOptions, ofText + keywords * ofOptions};
}

bool WordStream::MayRepeatDefaults(std::size_t count)
{
    if (count == 0)
        return true;
    const std::size_t values = weight * count;
    const auto [inKeyword, inDeck] = GetLimits();
    return madeInKeyword_ + values <= inKeyword && made_ + values <= inDeck && MayRepeat(values);
}

bool WordStream::MayRepeat(std::size_t values)
{
    const auto [inKeyword, inDeck] = GetLimits();
    const auto report = [this](const char* where, std::size_t most) {
        reporter_.Report(GetRepeatRange(), Code::TooManyValues,
            fmt::format("{}: too many repeated values up to '{}' (expected at most {} in {})", keyword_,
                GetWritten(), most, where),
            "correct the repeat count");
        return false;
    };
    if (madeInKeyword_ + values > inKeyword)
        return report("a keyword", inKeyword);
    if (made_ + values > inDeck)
        return report("the whole deck", inDeck);
    madeInKeyword_ += values;
    made_ += values;
    return true;
}

WordStream::Got WordStream::Peek()
{
    if (repeats_ > 0)
        return GotRepeated();
    if (IsLineOver())
        return Got::Slash;
    switch (text_.PeekData().kind) {
    case Token::Kind::Keyword:
    case Token::Kind::End:
        return Got::Stop;
    case Token::Kind::Slash:
        return Got::Slash;
    case Token::Kind::Quoted:
    case Token::Kind::Word:
        break;
    }
    return Got::Value;
}

WordStream::Got WordStream::SkipToSlash()
{
    const FindingReporter::Muted muted(reporter_, true);
    for (;;) {
        repeats_ = 0;
        const Got got = Next();
        repeats_ = 0;
        if (got == Got::Slash || got == Got::Stop)
            return got;
    }
}

const Token* WordStream::PeekBare()
{
    if (repeats_ > 0)
        return nullptr;
    const Token& next = text_.PeekData();
    return next.kind == Token::Kind::Word || next.kind == Token::Kind::Slash ? &next : nullptr;
}

void WordStream::TakeLine(const Token& line)
{
    ++taken_;
    SetLast(line.range);
}

void WordStream::TakePlain(std::size_t count, const TextRange& last)
{
    taken_ += count;
    SetLast(last);
}

void WordStream::TakeSlash(const Token& slash)
{
    word_ = slash;
    isDefault_ = isReported_ = false;
    ++taken_;
    lastBeforeSlash_ = last_;
    SetLast(slash.range);
}

void WordStream::SetLast(const TextRange& range)
{
    last_ = range;
    lastTurns_ = text_.GetTurns();
}

} // namespace Veld::Quor::Core::Decks
