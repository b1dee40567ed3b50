#include "quor/deck/internal/compare/ComparisonUnits.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/compare/ElementRanges.h"
#include "quor/deck/internal/compare/ReportSteps.h"
#include "quor/deck/internal/read/DataShape.h"
#include "quor/deck/internal/read/DataValue.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

bool HasIdentifier(const IKeywordRecordMD& md)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        if (md.IsIdentifier(i))
            return true;
    }
    return false;
}

bool IsListOfNamedRecords(const IKeywordDataMD* md)
{
    return IsListOfRecords(md, {})
        && HasIdentifier(
            static_cast<const IKeywordRecordMD&>(*static_cast<const IKeywordListMD&>(*md).GetItemMD()));
}

/// The identifiers of a record, or of the first one of a list, and of what it holds.
void AppendIdentity(const IKeywordData& data, std::string& text)
{
    const MDType::Enum type = data.GetMD()->GetType();
    if (type == MDType::List) {
        const auto& list = static_cast<const IKeywordListData&>(data);
        const auto* const item = static_cast<const IKeywordListMD&>(*data.GetMD()).GetItemMD();
        if (list.GetSize() > 0 && !KeywordUtils::IsItemMDType(item))
            AppendIdentity(*static_cast<const IKeywordData*>(list.GetData(0)), text);
    }
    if (type != MDType::Record)
        return;
    const auto& md = static_cast<const IKeywordRecordMD&>(*data.GetMD());
    const auto& record = static_cast<const IKeywordRecordData&>(data);
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD& item = *md.GetItemMD(i);
        if (!KeywordUtils::IsItemMDType(item.GetType())) {
            AppendIdentity(*static_cast<const IKeywordData*>(record.GetData(i)), text);
        } else if (md.IsIdentifier(i)) {
            const ScalarValue value = ItemValue(item, record.GetData(i));
            text.append(text.empty() ? "" : " ").append(IsGiven(value) ? ToText(item, value) : "*");
        }
    }
}

class Splitter {
public:
    explicit Splitter(const Deck& deck)
        : deck_(deck)
        , reports_(deck.files)
    {
        for (const DeckKeyword& keyword : deck.keywords)
            Add(keyword);
    }

    std::map<Step, StepUnits> Take() { return std::move(steps_); }

private:
    void Add(const DeckKeyword& keyword);
    void AddUnits(const DeckKeyword& keyword);
    void AddUnit(const DeckKeyword& keyword, const IKeywordData* data, const TextRange& range);
    void FollowScopes(const DeckKeyword& keyword);

    struct Scope {
        const IKeywordSyntax* opener;
        std::string key;
    };

    const Deck& deck_;
    ReportSteps reports_;
    std::map<Step, StepUnits> steps_;
    Step step_;
    std::size_t number_ = 0; // reports so far
    StepUnits* units_ = nullptr; // of the step
    std::vector<Scope> scopes_; // open ones, outermost first
};

void Splitter::Add(const DeckKeyword& keyword)
{
    if (!units_ || keyword.section != step_.section) {
        step_ = {keyword.section, {}, 0};
        scopes_.clear();
        units_ = &steps_[step_];
    }
    const auto times = reports_.Follow(keyword);
    for (std::size_t i = 0; i < times.size(); ++i) {
        step_ = {keyword.section, times[i], ++number_};
        if (times[i].IsDef())
            step_.number = 0;
        const auto [at, isNew] = steps_.try_emplace(step_);
        units_ = &at->second;
        if (isNew)
            units_->range = RangeOf(keyword, i);
    }
    if (!TimeLine::Advances(keyword))
        AddUnits(keyword);
}

void Splitter::AddUnits(const DeckKeyword& keyword)
{
    const IKeywordData* const data = keyword.data.get();
    if (data && IsListOfNamedRecords(data->GetMD())) {
        const auto& list = static_cast<const IKeywordListData&>(*data);
        for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
            AddUnit(keyword, static_cast<const IKeywordData*>(list.GetData(i)), RangeOf(keyword, i));
    } else {
        AddUnit(keyword, data, keyword.name);
        FollowScopes(keyword);
    }
}

void Splitter::AddUnit(const DeckKeyword& keyword, const IKeywordData* data, const TextRange& range)
{
    ComparisonUnit unit{scopes_.empty() ? std::string() : scopes_.back().key, deck_.NameOf(keyword), {},
        &keyword, data, range};
    if (data && keyword.syntax->HasIdentifiers())
        AppendIdentity(*data, unit.identity);
    unit.key.append("/").append(unit.name).append(" ").append(ToUpper(unit.identity));
    units_->units.push_back(std::move(unit));
}

void Splitter::FollowScopes(const DeckKeyword& keyword)
{
    if (!scopes_.empty()) {
        const auto& ends = scopes_.back().opener->GetScopeKeywords();
        if (std::find(ends.begin(), ends.end(), keyword.syntax) != ends.end())
            scopes_.pop_back();
    }
    if (keyword.syntax->HasScope())
        scopes_.push_back({keyword.syntax, units_->units.back().key});
}

} // namespace

std::map<Step, StepUnits> SplitDeck(const Deck& deck)
{
    return Splitter(deck).Take();
}

} // namespace Veld::Quor::Core::Decks
