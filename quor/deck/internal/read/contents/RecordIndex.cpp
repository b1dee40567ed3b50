#include "quor/deck/internal/read/contents/RecordIndex.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/data/RecordIdentity.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Row = RecordIndex::Row;

/// One for a number however it is written, and for a text in any case of letters.
std::size_t KeyOf(const std::string& text)
{
    const auto number = ToReal(text);
    return number ? std::hash<double>()(*number) : std::hash<std::string>()(ToUpper(text));
}

std::size_t KeyOf(const IdentityItem& item)
{
    if (const auto* const real = std::get_if<double>(&item.value))
        return std::hash<double>()(*real);
    return KeyOf(TextOf(item));
}

std::size_t Combine(std::size_t key, std::size_t next)
{
    return key ^ (next + 0x9e3779b9U + (key << 6U) + (key >> 2U));
}

/// One for each number of first identifiers.
void AddRecord(std::uint32_t keyword, std::uint32_t record, const IKeywordData& data, std::vector<Row>& rows)
{
    const std::vector<IdentityItem> identity = IdentityOf(data);
    if (identity.empty())
        rows.push_back({Combine(0, KeyOf("1")), keyword, record});
    std::size_t key = 0;
    for (const IdentityItem& item : identity)
        rows.push_back({key = Combine(key, KeyOf(item)), keyword, record});
}

} // namespace

RecordIndex::RecordIndex(const DeckContents& deck, const std::vector<std::uint32_t>& keywords)
{
    for (const std::uint32_t keyword : keywords) {
        if (deck.keywords[keyword].data)
            AddKeyword(deck, keyword);
    }
    std::sort(rows_.begin(), rows_.end());
}

void RecordIndex::AddKeyword(const DeckContents& deck, std::uint32_t keyword)
{
    const IKeywordData& data = *deck.keywords[keyword].data;
    Keywords& dated = byDate_[deck.DateOf(deck.keywords[keyword])];
    const bool isList = data.GetMD()->GetType() == MDType::List;
    const bool isNamed =
        isList ? IsListOfNamedRecords(data.GetMD()) : data.GetMD()->GetType() == MDType::Record;
    for (Keywords* const keywords : {&keywords_, &dated}) {
        keywords->all.push_back(keyword);
        if (isList && !isNamed)
            keywords->unnamed.push_back(keyword);
    }
    if (isNamed && !isList)
        AddRecord(keyword, 0, data, rows_);
    if (!isNamed || !isList)
        return;
    const auto& list = static_cast<const IKeywordListData&>(data);
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(list.GetSize()); ++i)
        AddRecord(keyword, i, *static_cast<const IKeywordData*>(list.GetData(i)), rows_);
}

const RecordIndex::Keywords& RecordIndex::FindKeywords(const std::string& date) const
{
    static const Keywords none;
    if (date.empty())
        return keywords_;
    const auto dated = byDate_.find(date);
    return dated == byDate_.end() ? none : dated->second;
}

std::vector<Row> RecordIndex::FindRecords(
    const std::vector<std::string>& identifiers, const std::string& date) const
{
    std::size_t key = 0;
    for (const std::string& text : identifiers)
        key = Combine(key, KeyOf(text));
    std::vector<Row> found;
    const auto isSame = [&](const Row& row, std::uint32_t keyword) {
        return row.key == key && row.keyword == keyword;
    };
    auto at = std::lower_bound(rows_.begin(), rows_.end(), Row{key, 0, 0});
    if (date.empty()) {
        for (; at != rows_.end() && at->key == key; ++at)
            found.push_back(*at);
        return found;
    }
    for (const std::uint32_t keyword : FindKeywords(date).all) {
        at = std::lower_bound(at, rows_.end(), Row{key, keyword, 0});
        for (; at != rows_.end() && isSame(*at, keyword); ++at)
            found.push_back(*at);
    }
    return found;
}

const RecordIndex& RecordIndices::Get(const DeckContents& deck, const std::vector<std::uint32_t>& keywords)
{
    const std::lock_guard lock(mutex_);
    const auto known = byFirst_.find(keywords.front());
    if (known != byFirst_.end())
        return *known->second;
    auto index = std::make_unique<const RecordIndex>(deck, keywords);
    return *byFirst_.emplace(keywords.front(), std::move(index)).first->second;
}

} // namespace Veld::Quor::Core::Decks
