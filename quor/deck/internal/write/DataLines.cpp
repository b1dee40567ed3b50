#include "quor/deck/internal/write/DataLines.h"

#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

std::string Blanks(std::size_t width, std::size_t taken)
{
    return std::string(width - std::min(width, taken), ' ');
}

} // namespace

DataLines::DataLines(std::string_view name, std::size_t width)
    : width_(width)
    , line_(name)
{
}

void DataLines::Word(std::string_view word)
{
    if (isBroken_ || isBehindSlash_
        || (wraps_ && line_.size() + 1 + word.size() > width_ && line_.size() > indent_))
        EndLine();
    line_ += line_.empty() ? std::string(indent_, ' ') : " ";
    line_ += word;
    isBehindSlash_ = word == "/";
}

void DataLines::Numbers(const std::vector<std::string>& words)
{
    std::size_t width = 0;
    for (const std::string& word : words)
        width = std::max(width, word.size());
    for (const std::string& word : words)
        Word(Blanks(width, word.size()) + word);
}

void DataLines::Line(std::string_view text)
{
    EndLine();
    isBehindSlash_ = false;
    line_ = text;
}

void DataLines::Comment(std::string_view comment, bool isIndented)
{
    Line(std::string(isIndented ? indent_ : 0, ' '));
    line_ += comment;
    isBroken_ = true;
}

void DataLines::After(std::string_view comment)
{
    if (!line_.empty())
        line_ += ' ';
    if (!isBehindSlash_ && !IsComment(comment))
        line_ += "-- ";
    line_ += comment;
    isBroken_ = true;
    isBehindSlash_ = false;
}

void DataLines::EndLine()
{
    isBroken_ = false;
    if (line_.empty())
        return;
    line_.erase(line_.find_last_not_of(' ') + 1);
    text_ += line_;
    text_ += '\n';
    line_.clear();
}

std::string DataLines::Take()
{
    line_.erase(line_.find_last_not_of(' ') + 1);
    return text_ + line_;
}

std::string MissingText(std::size_t count)
{
    return fmt::format("{}*", count);
}

} // namespace Veld::Quor::Core::Decks
