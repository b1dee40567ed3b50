#include "quor/deck/Portability.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/data/VisitData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/IValidityMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/KeywordSyntaxUtils.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

using LossKind = Loss::Kind;

bool IsValidFor(const IValidityMD& validity, const Target& target)
{
    return target.simulator == SimulatorType::Any || validity.IsValid(target.simulator, target.mode);
}

bool IsUnsupportedBy(const IUnsupportedByMD& unsupported, const Target& target)
{
    return target.simulator != SimulatorType::Any
        && unsupported.IsUnsupportedBy(target.simulator, target.mode);
}

class LossFinder {
public:
    LossFinder(const DeckContents& deck, const PortOptions& options)
        : deck_(deck)
        , from_(options.GetFrom())
        , to_(options.GetTo().value_or(deck.GetTarget()))
        , hasLocations_(options.HasLocations())
    {
    }

    std::vector<Loss> Find();

private:
    /// What is reported once, with a count: kind, keyword, section of one that is lost, item, detail.
    using Key = std::tuple<LossKind, const IKeywordSyntax*, SectionType::Enum, std::string, std::string>;
    /// What becomes of a value that is left out.
    struct LeftOut {
        bool isLost;
        LossKind kind;
        std::string detail;
    };

    void Visit(const KeywordInstance& keyword);
    bool IsKeywordLost(const KeywordInstance& keyword) const;
    void Visit(const IKeywordData& data);
    void VisitRecord(const IKeywordRecordData& record);
    void VisitItem(const IKeywordRecordMD& md, int index, const void* item);
    void VisitList(const IKeywordListData& list);
    void VisitMap(const IKeywordMapData& map);
    void VisitValue(const IKeywordDataMD& md, const ScalarValue& value);
    void VisitLeftOut(const IKeywordDataMD& md, std::size_t count = 1);
    const LeftOut& GetLeftOut(const IKeywordDataMD& md);

    void Report(
        LossKind kind, const std::string& item, const std::string& detail = {}, std::size_t count = 1);

    const DeckContents& deck_;
    Target from_;
    Target to_;
    bool hasLocations_;
    std::unordered_map<const IKeywordDataMD*, LeftOut> leftOut_;
    std::map<Key, std::size_t> positions_;
    std::vector<Loss> losses_; // in the order of the deck
    // Of what is being visited
    const KeywordInstance* keyword_ = nullptr;
    TextRange range_; // of the record, or the keyword
};

std::vector<Loss> LossFinder::Find()
{
    for (const KeywordInstance& keyword : deck_.keywords)
        Visit(keyword);
    std::stable_sort(
        losses_.begin(), losses_.end(), [](const Loss& a, const Loss& b) { return a.kind < b.kind; });
    return std::move(losses_);
}

void LossFinder::Visit(const KeywordInstance& keyword)
{
    keyword_ = &keyword;
    range_ = keyword.name;
    if (IsKeywordLost(keyword)) {
        Report(LossKind::KeywordNotValid, {});
        return;
    }
    if (!keyword.data)
        return;
    if (keyword.records.empty()) {
        Visit(*keyword.data);
        return;
    }
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        range_ = RangeOf(keyword, i);
        Visit(*static_cast<const IKeywordData*>(list.GetData(i)));
    }
}

/// What isn't valid where the deck runs now, or in its section at all, has nothing to lose.
bool LossFinder::IsKeywordLost(const KeywordInstance& keyword) const
{
    const std::string spelling = ToUpper(deck_.files.GetText(keyword.name));
    const auto isValid = [&](const Target& target) {
        return KeywordSyntaxUtils::IsValid(
            *keyword.syntax, spelling, keyword.section, target.simulator, target.mode);
    };
    return isValid(from_) && !isValid(to_);
}

void LossFinder::Visit(const IKeywordData& data)
{
    VisitData(data,
        Overloaded{[this](const IKeywordRecordData& record) { VisitRecord(record); },
            [this](const IKeywordListData& list) { VisitList(list); },
            [this](const IKeywordMapData& map) { VisitMap(map); }, [](const IKeywordRawData& /*raw*/) {}});
}

void LossFinder::VisitRecord(const IKeywordRecordData& record)
{
    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
    for (int i = 0; i < md.GetSize(); ++i)
        VisitItem(md, i, record.GetData(i));
}

void LossFinder::VisitItem(const IKeywordRecordMD& md, int index, const void* item)
{
    const IKeywordDataMD& itemMD = *md.GetItemMD(index);
    const bool isScalar = KeywordUtils::IsItemMDType(itemMD.GetType());
    const ScalarValue value = isScalar ? ItemValue(itemMD, item) : ScalarValue();
    if (!IsValidFor(md.GetValidity(index), to_)) {
        if (IsGiven(value) && IsValidFor(md.GetValidity(index), from_))
            Report(LossKind::ItemNotValid, ItemName(itemMD));
    } else if (!isScalar) {
        Visit(*static_cast<const IKeywordData*>(item));
    } else if (!IsGiven(value)) {
        VisitLeftOut(itemMD);
    } else if (IsUnsupportedBy(md.GetUnsupportedBy(index), to_)) {
        if (!IsUnsupportedBy(md.GetUnsupportedBy(index), from_))
            Report(LossKind::ItemUnsupported, ItemName(itemMD));
    } else {
        VisitValue(itemMD, value);
    }
}

void LossFinder::VisitList(const IKeywordListData& list)
{
    const auto& md = static_cast<const IKeywordListMD&>(*list.GetMD());
    const IKeywordDataMD* const item = md.GetItemMD();
    const auto size = static_cast<std::size_t>(list.GetSize());
    if (!item || size == 0)
        return;
    if (!KeywordUtils::IsItemMDType(item)) {
        for (std::size_t i = 0; i < size; ++i)
            Visit(*static_cast<const IKeywordData*>(list.GetData(i)));
        return;
    }
    const bool mayLoseDefault =
        md.IsItemDefaultable() && !md.FillEmptyElementsWithPreviousValue() && GetLeftOut(*item).isLost;
    if (item->GetType() != MDType::Choice && !mayLoseDefault)
        return;
    std::size_t leftOut = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (list.IsDefaulted(i))
            ++leftOut;
        else
            VisitValue(*item, ElementValue(*item, list.GetData(i)));
    }
    if (leftOut > 0 && mayLoseDefault)
        VisitLeftOut(*item, leftOut);
}

void LossFinder::VisitMap(const IKeywordMapData& map)
{
    for (int i = 0; i < map.GetSize(); ++i) {
        const IKeywordAssignmentMD& md = *map.GetItemMD(i);
        const bool isGiven = map.GetValue(i).HasValue();
        const bool wasValid = from_.simulator == SimulatorType::Any || md.IsValid(from_.simulator);
        if (!md.IsValid(to_.simulator)) {
            if (isGiven && wasValid)
                Report(LossKind::ItemNotValid, ItemName(md));
        } else if (!isGiven) {
            VisitLeftOut(md);
        }
    }
}

void LossFinder::VisitValue(const IKeywordDataMD& md, const ScalarValue& value)
{
    if (md.GetType() != MDType::Choice || !IsGiven(value))
        return;
    const auto& choice = static_cast<const IKeywordChoiceMD&>(md);
    const int index = std::get<int>(value);
    if (index < 0 || index >= choice.NumChoices())
        return;
    if (!IsValidFor(choice.GetValidity(index), to_)) {
        if (IsValidFor(choice.GetValidity(index), from_))
            Report(LossKind::ChoiceNotValid, ItemName(md), choice.GetChoice(index));
    } else if (IsUnsupportedBy(choice.GetUnsupportedBy(index), to_)
        && !IsUnsupportedBy(choice.GetUnsupportedBy(index), from_)) {
        Report(LossKind::ChoiceUnsupported, ItemName(md), choice.GetChoice(index));
    }
}

void LossFinder::VisitLeftOut(const IKeywordDataMD& md, std::size_t count)
{
    const LeftOut& leftOut = GetLeftOut(md);
    if (leftOut.isLost)
        Report(leftOut.kind, ItemName(md), leftOut.detail, count);
}

/// Asked for each value that is left out, so it is kept.
const LossFinder::LeftOut& LossFinder::GetLeftOut(const IKeywordDataMD& md)
{
    const auto known = leftOut_.find(&md);
    if (known != leftOut_.end())
        return known->second;
    const DefaultValue from = DefaultOf(md, from_.simulator);
    const DefaultValue to = DefaultOf(md, to_.simulator);
    LeftOut leftOut{from.isThere && !(from == to), to.isThere ? LossKind::OtherDefault : LossKind::NoDefault,
        fmt::format("{} -> {}", ToText(md, from), ToText(md, to))};
    return leftOut_.emplace(&md, std::move(leftOut)).first->second;
}

void LossFinder::Report(LossKind kind, const std::string& item, const std::string& detail, std::size_t count)
{
    const SectionType::Enum section =
        kind == LossKind::KeywordNotValid ? keyword_->section : SectionType::None;
    const auto [position, isNew] =
        positions_.try_emplace({kind, keyword_->syntax, section, item, detail}, losses_.size());
    if (isNew)
        losses_.push_back({kind, deck_.NameOf(*keyword_), keyword_->section, item, detail, 0, {}, {}});
    Loss& loss = losses_[position->second];
    loss.count += count;
    if (isNew)
        loss.first = deck_.files.LocationOf(range_);
    if (hasLocations_)
        loss.locations.push_back(deck_.files.LocationOf(range_));
}

} // namespace

std::vector<Loss> FindLosses(const Deck& deck, const PortOptions& options)
{
    return LossFinder(ContentsOf(deck), options).Find();
}

} // namespace Veld::Quor::Core::Decks
