#include "quor/deck/ValueAddress.h"
#include "quor/metadata/IKeywordListMD.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Methods.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

constexpr int shortRecord = 4; // items that need no names
constexpr std::size_t mostHints = 2000;

/// Adds the hints of one keyword in a part of the document.
class Hints {
public:
    Hints(const View& view, ByteRange part, Json& all)
        : view_(view)
        , part_(part)
        , all_(all)
    {
    }

    void AddKeyword(const Decks::DeckKeyword& keyword);

private:
    void AddArray(const std::vector<Decks::TextRange>& ranges);
    void AddWord(const ScalarPlace& first, const ScalarPlace& last, const Decks::TextRange& range);
    void Add(const Decks::TextRange& range, const std::string& label);

    const View& view_;
    ByteRange part_;
    Json& all_;
};

void Hints::Add(const Decks::TextRange& range, const std::string& label)
{
    const auto now = range.length > 0 ? view_.ToNow(range) : std::nullopt;
    if (now && now->offset >= part_.offset && now->offset < part_.GetEnd() && all_.size() < mostHints)
        all_.push_back({{"position", ToJson(view_.SpanOf(*now).begin)}, {"label", label}, {"kind", 2},
            {"paddingRight", true}});
}

/// Which values a repeat stands for.
void Hints::AddArray(const std::vector<Decks::TextRange>& ranges)
{
    const auto begin = view_.ToThen(part_.offset);
    const auto end = view_.ToThen(part_.GetEnd());
    if (!begin || !end)
        return;
    auto word = std::lower_bound(
        ranges.begin(), ranges.end(), *begin, [this](const Decks::TextRange& range, std::size_t offset) {
            return range.file < view_.file || (range.file == view_.file && range.offset < offset);
        });
    while (word != ranges.end() && word->file == view_.file && word->offset < *end) {
        const auto next = std::find_if(
            word, ranges.end(), [&](const Decks::TextRange& range) { return range.offset != word->offset; });
        if (next - word > 1)
            Add(*word, fmt::format("{} to {}:", word - ranges.begin() + 1, next - ranges.begin()));
        word = next;
    }
}

/// Which items a word stands for.
void Hints::AddWord(const ScalarPlace& first, const ScalarPlace& last, const Decks::TextRange& range)
{
    if (first.record && first.record->GetSize() > shortRecord && !first.isInList)
        Add(range,
            first.slot == last.slot || first.record != last.record
                ? *first.name + ':'
                : fmt::format("{} to {}:", *first.name, *last.name));
}

void Hints::AddKeyword(const Decks::DeckKeyword& keyword)
{
    const auto* const ranges = FindValueRanges(view_.GetDeck(), keyword);
    if (!ranges)
        return;
    const IKeywordDataMD& md = *keyword.FindData()->GetMD();
    if (md.GetType() == IKeywordDataMD::MDType::List
        && KeywordUtils::IsItemMDType(static_cast<const IKeywordListMD&>(md).GetItemMD())) {
        AddArray(*ranges);
        return;
    }
    ScalarPlace first;
    ScalarPlace last;
    ForEachScalar(*keyword.FindData(), false, [&](const ScalarPlace& place) {
        const Decks::TextRange& range = (*ranges)[place.slot];
        const bool continues = last.md && range.length > 0 && (*ranges)[last.slot].offset == range.offset;
        if (!continues) {
            if (first.md)
                AddWord(first, last, (*ranges)[first.slot]);
            first = place;
        }
        last = place;
    });
    if (first.md)
        AddWord(first, last, (*ranges)[first.slot]);
}

} // namespace

/// The names of items in long records, and what repeats stand for.
Json InlayHints(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    Json hints = Json::array();
    if (!view.places)
        return hints;
    const Span span = SpanIn(params.at("range"));
    const std::size_t begin = view.OffsetOf(span.begin);
    const ByteRange part{begin, std::max(begin, view.OffsetOf(span.end)) - begin};
    const auto then = view.ToThen(part.GetEnd());
    const auto first = FindKeywordAt(view, begin);
    for (const std::uint32_t index : view.GetState().GetKeywordsIn(view.file)) {
        if (first && index < first->GetIndex())
            continue;
        if (!then || view.GetDeck()[index].GetNameRange().offset >= *then)
            break;
        Hints(view, part, hints).AddKeyword(view.GetDeck()[index]);
    }
    return hints;
}

} // namespace Veld::Quor::Tools::LanguageServer
