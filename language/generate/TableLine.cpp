#include "language/generate/TableLine.h"

#include "language/generate/Files.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace {

constexpr std::string_view cellBlanks = " \t\r";

} // namespace

TableLine::TableLine(std::string_view text, Place begin, const char* columns)
    : text_(text.substr(0, text.find_last_not_of(cellBlanks) + 1))
    , begin_(std::move(begin))
    , columns_(columns)
{
    SkipBlanks();
}

Word TableLine::Heading() const
{
    Word name{text_.substr(at_ + 1), {begin_.file, begin_.line, begin_.column + at_}};
    if (name.text.size() < 2 || name.text.back() != ']')
        Fail(name.place, "expected a line such as [name of a group]");
    name.text.pop_back();
    return name;
}

Word TableLine::Next(const char* column)
{
    return Cut(text_.find_first_of(cellBlanks, at_), column);
}

Word TableLine::Rest(const char* column)
{
    return Cut(text_.size(), column);
}

void TableLine::SkipBlanks()
{
    at_ = std::min(text_.find_first_not_of(cellBlanks, at_), text_.size());
}

Word TableLine::Cut(std::size_t end, const char* column)
{
    Word word{text_.substr(at_, end - at_), {begin_.file, begin_.line, begin_.column + at_}};
    if (word.text.empty())
        Fail(word.place,
            std::string("the line ends where its ") + column + " should stand; it must have: " + columns_);
    at_ = std::min(end, text_.size());
    SkipBlanks();
    return word;
}

void ForEachLine(
    const std::string& path, const char* columns, const std::function<void(const TableLine&)>& use)
{
    std::istringstream text(ReadText(path));
    std::size_t number = 0;
    for (std::string line; std::getline(text, line);) {
        const TableLine cut(line, {path, ++number, 1}, columns);
        if (!cut.IsEmpty())
            use(cut);
    }
}

std::vector<Word> CommaSeparated(const Word& word)
{
    std::vector<Word> words;
    for (std::size_t begin = 0; begin <= word.text.size();) {
        const std::size_t end = std::min(word.text.find(',', begin), word.text.size());
        words.push_back({word.text.substr(begin, end - begin),
            {word.place.file, word.place.line, word.place.column + begin}});
        begin = end + 1;
    }
    return words;
}

void FailUnknown(const Word& word, const std::string& what, const std::string& known)
{
    Fail(word.place, "unknown " + what + " '" + word.text + "'; known are" + known);
}
