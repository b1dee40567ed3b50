#include "tests/trust/SampleDeck.h"

#include "quor/syntax/IKeywordSyntax.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace Veld::Quor::Trust {

using namespace Core::Decks;
using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

Target TargetOf(const std::string& path)
{
    Target target;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::size_t at = line.find("quor check ");
        if (!line.starts_with("--") || at == std::string::npos)
            continue;
        std::istringstream words(line.substr(at));
        for (std::string word; words >> word;) {
            if (word == "--simulator" && words >> word)
                target.simulator = SimulatorType::FromString(word);
            else if (word == "--mode" && words >> word)
                target.mode = SimulatorModeType::FromString(word);
        }
    }
    return target;
}

/// The metadata at a path, and the innermost record on the way.
void FindMetadata(const IKeywordDataMD* md, Value& value)
{
    value.item = md->GetName();
    for (const std::size_t index : value.path) {
        if (md->GetType() == MDType::List) {
            value.list = static_cast<const IKeywordListMD*>(md);
            value.record = nullptr;
            md = value.list->GetItemMD();
        } else {
            value.record = static_cast<const IKeywordRecordMD*>(md);
            value.list = nullptr;
            md = value.record->GetItemMD(static_cast<int>(index));
        }
        if (!md->GetName().empty())
            value.item = md->GetName();
    }
    value.md = md;
}

} // namespace

std::string Unquoted(std::string_view word)
{
    if (word.size() >= 2 && (word.front() == '\'' || word.front() == '"') && word.back() == word.front())
        word = word.substr(1, word.size() - 2);
    return std::string(word);
}

SampleDeck::SampleDeck(const std::string& path, const DeckLanguage& language)
    : path_(path)
    , deck_(Deck::Read(path, language, ReadOptions().SetTarget(TargetOf(path)).SetEditable(true)))
{
    for (const Finding& finding : deck_.GetFindings())
        throw std::runtime_error("a deck to seed mistakes into has one already: " + ToString(finding));
    std::set<std::string> names;
    for (const DeckKeyword keyword : deck_) {
        if (names.insert(keyword.GetName()).second && keyword.FindData())
            AddValues(keyword.GetName());
    }
}

void SampleDeck::AddValues(const std::string& name)
{
    for (const DeckValue& found : Resolve(deck_, ValueAddress{name})) {
        if (!found.range || found.range->length == 0 || found.text.empty())
            continue;
        const TextRange range = *found.range;
        if (!values_.empty() && values_.back().range.file == range.file
            && values_.back().range.offset == range.offset)
            values_.pop_back(); // the last one of a repeat stands for all
        values_.push_back(
            {found.keyword.GetIndex(), found.path, {}, nullptr, nullptr, nullptr, range, found.text});
        FindMetadata(found.keyword.GetSyntax().GetDataMD(), values_.back());
    }
}

TextRange SampleDeck::LinesOf(const TextRange& range) const
{
    const std::string_view text = GetText(range.file);
    const std::size_t before =
        range.offset == 0 ? std::string_view::npos : text.rfind('\n', range.offset - 1);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t last = range.offset + std::max<std::size_t>(range.length, 1) - 1;
    const std::size_t end = text.find('\n', last);
    return {range.file, begin, (end == std::string_view::npos ? text.size() : end + 1) - begin};
}

std::vector<Word> SampleDeck::WordsOf(const DeckKeyword& keyword) const
{
    std::vector<Word> words;
    const TextRange whole = keyword.GetRange();
    const std::string_view text = GetText(whole);
    std::size_t at = std::min(keyword.GetNameRange().length, text.size());
    const auto skipLine = [&] { at = std::min(text.find('\n', at), text.size()); };
    while ((at = text.find_first_not_of(" \t\r\n", at)) != std::string_view::npos) {
        const std::size_t begin = at;
        const bool isSlash = text[at] == '/';
        if (text.substr(at, 2) == "--") {
            skipLine();
            continue;
        }
        if (text[at] == '\'' || text[at] == '"')
            at = std::min(text.find(text[at], at + 1), text.size() - 1) + 1;
        else if (isSlash)
            ++at;
        else
            at = std::min(text.find_first_of(" \t\r\n/", at), text.size());
        words.push_back({{whole.file, whole.offset + begin, at - begin}, isSlash});
        if (isSlash)
            skipLine();
    }
    return words;
}

TextRange SampleDeck::SlashAfter(const Value& value) const
{
    for (const Word& word : WordsOf(deck_[value.keyword])) {
        if (word.isSlash && word.range.file == value.range.file && word.range.offset >= value.range.offset)
            return word.range;
    }
    return {value.range.file, value.range.offset, 0};
}

std::vector<TextRange> SampleDeck::UsesOf(const std::string& word) const
{
    std::vector<TextRange> uses;
    for (const Value& value : values_) {
        if (value.text == word)
            uses.push_back(value.range);
    }
    return uses;
}

std::size_t SampleDeck::GetSize(const std::string& item) const
{
    for (const Value& value : values_) {
        if (value.item == item && deck_[value.keyword].GetSection() == SectionType::RUNSPEC)
            return std::stoul(value.text);
    }
    return 0;
}

} // namespace Veld::Quor::Trust
