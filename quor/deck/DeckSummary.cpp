#include "quor/deck/DeckSummary.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/compare/ArrayOperations.h"
#include "quor/deck/internal/compare/WellSummary.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/foundation/UnitSystem.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/ICellPropertyInfo.h"
#include "quor/variables/KeywordDataMDProcessor.h"
#include "quor/variables/KeywordVariableUtils.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

std::vector<FileSummary> SummarizeFiles(const DeckContents& deck)
{
    std::vector<FileSummary> files(deck.files.GetSize());
    for (std::uint32_t i = 0; i < files.size(); ++i) {
        const DeckFile& file = deck.files.Get(i);
        const std::size_t depth = file.inclusion ? files[file.inclusion->file].depth + 1 : 0;
        files[i] = {file.name, depth, deck.files.GetText(i).size(), 0};
    }
    for (const KeywordInstance& keyword : deck.keywords)
        ++files[keyword.name.file].keywords;
    return files;
}

std::vector<SectionSummary> SummarizeSections(const DeckContents& deck)
{
    std::vector<SectionSummary> sections;
    for (const KeywordInstance& keyword : deck.keywords) {
        const auto known = std::find_if(sections.begin(), sections.end(),
            [&keyword](const SectionSummary& row) { return row.section == keyword.section; });
        if (known != sections.end())
            ++known->keywords;
        else
            sections.push_back({keyword.section, 1, deck.files.LocationOf(keyword.name)});
    }
    return sections;
}

SizeSummary SizesOf(const KeywordInstance& keyword)
{
    SizeSummary summary{keyword.syntax->GetName(), {}};
    const auto& md = static_cast<const IKeywordRecordMD&>(*keyword.data->GetMD());
    const auto& record = static_cast<const IKeywordRecordData&>(*keyword.data);
    for (int i = 0; i < md.GetSize(); ++i) {
        if (KeywordUtils::GetMDType(md.GetItemMD(i)) != MDType::Integer)
            continue;
        const ScalarValue value = ItemValue(*md.GetItemMD(i), record.GetData(i));
        if (IsGiven(value))
            summary.sizes.emplace_back(ItemName(*md.GetItemMD(i)), std::get<int>(value));
    }
    return summary;
}

void AddRunspec(const KeywordInstance& keyword, const RolesOfKeyword& roles, DeckSummary& summary)
{
    const std::string& name = keyword.syntax->GetName();
    bool isUnitSystem = false;
    UnitSystem::FromString(name, &isUnitSystem);
    if (isUnitSystem) {
        summary.units = name;
    } else if (!keyword.data) {
        if (keyword.syntax->GetDeckRole() == KeywordDeckRole::Ordinary)
            summary.options.push_back(name);
    } else if (roles.Has(Role::Title) && IsRecordOf(keyword.data->GetMD(), {MDType::Line})) {
        const auto& record = static_cast<const IKeywordRecordData&>(*keyword.data);
        const IKeywordDataMD& text = *static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(0);
        summary.title = ToText(text, ItemValue(text, record.GetData(0)));
    } else if (!roles.Has(Role::StartOfRun) && IsRecordOf(keyword.data->GetMD(), {})) {
        SizeSummary sizes = SizesOf(keyword);
        if (!sizes.sizes.empty())
            summary.sizes.push_back(std::move(sizes));
    }
}

template <class T>
void Measure(const IKeywordListData& list, bool mayBeDefaulted, PropertySummary& summary)
{
    PropertySummary::Range range{};
    long double sum = 0;
    const bool mayBeUnknown = HasUnknown(list);
    for (std::size_t i = 0; i < summary.count; ++i) {
        if (mayBeDefaulted && list.IsDefaulted(i)) {
            ++summary.defaulted;
            continue;
        }
        if (mayBeUnknown && IsUnknown(list, i)) {
            ++summary.unknown;
            continue;
        }
        const auto value = static_cast<double>(*static_cast<const T*>(list.GetData(i)));
        const bool isFirst = i == summary.defaulted + summary.unknown;
        range.least = isFirst ? value : std::min(range.least, value);
        range.greatest = isFirst ? value : std::max(range.greatest, value);
        sum += value;
    }
    const std::size_t given = summary.count - summary.defaulted - summary.unknown;
    range.mean = static_cast<double>(sum / static_cast<long double>(std::max<std::size_t>(given, 1)));
    if (given > 0)
        summary.range = range;
}

void AddProperty(const DeckContents& deck, const KeywordInstance& keyword, DeckSummary& summary)
{
    const ICellPropertyInfo* const cell = keyword.syntax->GetCellPropertyInfo();
    if (!cell || !keyword.data)
        return;
    const bool isReal = IsListOf(keyword.data->GetMD(), MDType::Real);
    if (!isReal && !IsListOf(keyword.data->GetMD(), MDType::Integer))
        return;
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    const auto& md = static_cast<const IKeywordListMD&>(*list.GetMD());
    PropertySummary property;
    property.keyword = deck.NameOf(keyword);
    property.property = cell->GetPropertyName();
    property.location = deck.files.LocationOf(keyword.name);
    property.count = static_cast<std::size_t>(list.GetSize());
    if (isReal) {
        if (const auto* name = static_cast<const IKeywordRealMD&>(*md.GetItemMD()).GetMeasurement())
            property.measurement = *name;
        Measure<double>(list, md.IsItemDefaultable(), property);
    } else {
        Measure<int>(list, md.IsItemDefaultable(), property);
    }
    summary.properties.push_back(std::move(property));
}

using Variables = std::map<std::string, std::set<std::string>>;

void AddVariables(const DeckContents& deck, const KeywordInstance& keyword, Variables& variables)
{
    if (!keyword.notes || !keyword.notes->variables)
        return;
    KeywordDataMDProcessor processor;
    KeywordVariableUtils::ProcessVariables(*keyword.data, *keyword.notes->variables, processor);
    for (const auto& use : processor.GetData()) {
        const std::string item = ItemName(*use.MD());
        variables[use.VariableName()].insert(deck.NameOf(keyword) + (item.empty() ? "" : " " + item));
    }
}

} // namespace

DeckSummary Summarize(const Deck& readDeck)
{
    const DeckContents& deck = ContentsOf(readDeck);
    DeckSummary summary;
    summary.files = SummarizeFiles(deck);
    summary.sections = SummarizeSections(deck);
    std::size_t step = 0;
    RolePlans plans(deck.language.GetRules(), RolePlans::Which::All);
    WellSummary wells(deck.language.GetRules(), plans);
    ArrayOperations arrays(deck, plans);
    Variables variables;
    for (std::size_t i = 0; i < deck.keywords.size(); ++i) {
        const KeywordInstance& keyword = deck.keywords[i];
        const RolesOfKeyword& roles = deck.language.RolesOf(*keyword.syntax);
        if (keyword.section == SectionType::RUNSPEC)
            AddRunspec(keyword, roles, summary);
        AddProperty(deck, keyword, summary);
        AddVariables(deck, keyword, variables);
        arrays.Follow(keyword);
        if (roles.Has(Role::StartOfRun))
            summary.end = deck.start;
        for (; step < deck.steps.size() && deck.steps[step].keyword == i; ++step)
            summary.end = deck.steps[step].time;
        wells.Follow(keyword, summary.end);
    }
    summary.reports = deck.steps.size();
    summary.start = deck.start;
    summary.wells = wells.GetWells();
    summary.groups = wells.GetGroups();
    summary.arrays = arrays.GetArrays();
    for (auto& [name, uses] : variables)
        summary.variables.push_back({name, std::move(uses)});
    return summary;
}

} // namespace Veld::Quor::Core::Decks
