#include "quor/deck/ValueAddress.h"
#include "quor/deck/WrittenWords.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/NamesAt.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

[[noreturn]] void Refuse(const std::string& why)
{
    throw RequestError(ErrorCode::RequestFailed, why);
}

/// '*' stands for any characters, '?' for one.
bool IsMatch(std::string_view pattern, std::string_view text)
{
    if (pattern.empty())
        return text.empty();
    if (pattern.front() == '*')
        return IsMatch(pattern.substr(1), text) || (!text.empty() && IsMatch(pattern, text.substr(1)));
    return !text.empty() && (pattern.front() == '?' || pattern.front() == text.front())
        && IsMatch(pattern.substr(1), text.substr(1));
}

/// One name of a deck gets another one.
class Renaming {
public:
    Renaming(const View& view, std::vector<std::uint32_t> names, std::string newName)
        : state_(view.GetState())
        , deck_(view.GetDeck())
        , index_(view.GetState().GetNames())
        , names_(std::move(names))
        , old_(index_.GetNames()[names_.front()].text)
        , new_(std::move(newName))
    {
    }

    /// Throws `RequestError` if something would be lost.
    std::vector<Decks::TextEdit> Make() const
    {
        CheckNewName();
        CheckPatterns();
        CheckHiddenNames();
        std::vector<Decks::TextEdit> edits;
        std::set<std::pair<std::uint32_t, std::size_t>> known;
        for (const std::uint32_t name : names_) {
            for (const std::uint32_t use : index_.GetNames()[name].uses) {
                const Decks::TextRange& range = index_.GetUses()[use].range;
                if (known.insert({range.file, range.offset}).second)
                    edits.push_back({range, NewWord(range)});
            }
        }
        return edits;
    }

private:
    void CheckNewName() const;
    void CheckLength() const;
    void CheckPatterns() const;
    void CheckHiddenNames() const;
    bool HidesName(const Decks::DeckKeyword& keyword) const;
    std::string NewWord(const Decks::TextRange& range) const;

    const DeckState& state_;
    const Decks::Deck& deck_;
    const NameIndex& index_;
    std::vector<std::uint32_t> names_;
    std::string old_;
    std::string new_;
};

void Renaming::CheckNewName() const
{
    const auto isBad = [](unsigned char c) {
        return c <= ' ' || c == 0x7F
            || std::string_view("'\"*?/").find(static_cast<char>(c)) != std::string_view::npos;
    };
    const std::string_view rest =
        std::string_view(new_).substr(old_.starts_with('*') && new_.starts_with('*') ? 1 : 0);
    if (rest.empty() || std::any_of(rest.begin(), rest.end(), isBad))
        Refuse(fmt::format("'{}' is no name: expected letters, digits and marks, without blanks, quotes, "
                           "'*', '?' and '/'",
            new_));
    CheckLength();
    for (const std::uint32_t name : names_) {
        const std::size_t kind = index_.GetNames()[name].kind;
        const auto other = index_.FindNumber(kind, new_);
        if (other && std::find(names_.begin(), names_.end(), *other) == names_.end())
            Refuse(fmt::format(
                "the deck has the {} '{}' already", state_.GetNameRules().GetKinds()[kind], new_));
    }
}

/// Of all items that have the name.
void Renaming::CheckLength() const
{
    for (const std::uint32_t name : names_) {
        for (const std::uint32_t number : index_.GetNames()[name].uses) {
            const NameUse& use = index_.GetUses()[number];
            if (!use.isDefinition)
                continue;
            const auto& ranges = *FindValueRanges(deck_, deck_[use.keyword]);
            const auto slot = std::find_if(ranges.begin(), ranges.end(), [&](const Decks::TextRange& range) {
                return range.file == use.range.file && range.offset == use.range.offset;
            });
            const ScalarPlace place =
                PlaceOf(deck_[use.keyword], static_cast<std::size_t>(slot - ranges.begin()));
            if (!place.md || place.md->GetType() != IKeywordDataMD::MDType::String)
                Refuse(fmt::format(
                    "'{}' is a number in {}; only names can be changed", old_, deck_[use.keyword].GetName()));
            const int limit = static_cast<const IKeywordStringMD&>(*place.md).LimitLengthTo();
            if (new_.size() > static_cast<std::size_t>(limit))
                Refuse(fmt::format("'{}' has {} characters; {} accepts at most {}", new_, new_.size(),
                    deck_[use.keyword].GetName(), limit));
        }
    }
}

/// A pattern that stands for the old name alone, or the new one, would mean something else.
void Renaming::CheckPatterns() const
{
    for (const DeckName& other : index_.GetNames()) {
        const bool isPattern =
            other.text.find_first_of("*?") != std::string::npos && !other.text.starts_with('*');
        const bool isOfKind = std::any_of(names_.begin(), names_.end(),
            [&](std::uint32_t name) { return index_.GetNames()[name].kind == other.kind; });
        const std::string pattern = ToUpper(other.text);
        if (isPattern && isOfKind && IsMatch(pattern, ToUpper(old_)) != IsMatch(pattern, ToUpper(new_)))
            Refuse(fmt::format("the pattern '{}' at {} stands for only one of '{}' and '{}'; change it first",
                other.text, state_.LineText(index_.GetUses()[other.uses.front()].range), old_, new_));
    }
}

/// Whether the text of a keyword has the old name where it isn't known to be a name.
bool Renaming::HidesName(const Decks::DeckKeyword& keyword) const
{
    const Decks::TextRange range = keyword.GetRange();
    const auto words = Decks::FindWords(keyword.GetText());
    return std::any_of(words.begin(), words.end(), [&](const Decks::WrittenWord& word) {
        return ToUpper(std::string(word.text)) == ToUpper(old_)
            && index_.FindAt(range.file, range.offset + word.offset).empty();
    });
}

/// Errors in a keyword may hide what its words are.
void Renaming::CheckHiddenNames() const
{
    for (const Decks::DeckKeyword keyword : deck_) {
        const bool hasNames = !state_.GetNameRules().Get(keyword.GetSyntax()).empty();
        if (hasNames && !keyword.IsSound() && HidesName(keyword))
            Refuse(fmt::format("{} at {} has errors, which hide whether '{}' is a name; fix them first",
                keyword.GetName(), state_.LineText(keyword.GetNameRange()), old_));
    }
}

/// In quotes as before, or if the new name needs them.
std::string Renaming::NewWord(const Decks::TextRange& range) const
{
    const std::string_view text = deck_.GetFiles().GetText(range);
    const auto words = Decks::FindWords(text);
    if (words.size() != 1 || words.front().count > 1)
        Refuse(
            fmt::format("the name at {} is repeated by a count; write it out first", state_.LineText(range)));
    const bool isPlain = std::isalpha(static_cast<unsigned char>(new_.front())) != 0
        && std::all_of(new_.begin(), new_.end(),
            [](unsigned char c) { return std::isalnum(c) != 0 || c == '_' || c == '-'; });
    if (words.front().isQuoted)
        return text.front() + new_ + text.front();
    return isPlain ? new_ : '\'' + new_ + '\'';
}

std::vector<std::uint32_t> NamesToChange(const View& view, std::size_t offset)
{
    if (!view.places)
        return {};
    auto names = NamesAt(view, offset);
    const auto& all = view.GetState().GetNames().GetNames();
    const auto isDefined = [&all](std::uint32_t name) { return all[name].isDefined; };
    return std::any_of(names.begin(), names.end(), isDefined) ? std::move(names)
                                                              : std::vector<std::uint32_t>();
}

} // namespace

Json PrepareRename(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    const std::size_t offset = view.OffsetOf(PositionIn(params.at("position")));
    if (NamesToChange(view, offset).empty())
        return {};
    const auto [word, begin] = WordAt(view.GetText(), offset);
    return {{"range", ToJson(view.SpanOf({begin, word.size()}))}, {"placeholder", std::string(word)}};
}

Json Rename(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    auto names = NamesToChange(view, view.OffsetOf(PositionIn(params.at("position"))));
    if (names.empty())
        Refuse("the deck defines no name that is at the cursor");
    const Renaming renaming(view, std::move(names), params.at("newName").get<std::string>());
    return view.places->EditOf(renaming.Make());
}

} // namespace Veld::Quor::Tools::LanguageServer
