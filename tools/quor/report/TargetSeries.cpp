#include "tools/quor/report/TargetSeries.h"

#include "quor/data/Access.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "tools/quor/tree/UnitTexts.h"

#include <utility>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;
using nlohmann::ordered_json;

TargetSeries::TargetSeries(UnitSystem::Enum units, std::string of)
    : units_(units)
    , of_(std::move(of))
{
}

std::vector<int> TargetSeries::FindItems(const IKeywordRecordMD& record)
{
    std::vector<int> items;
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD& item = *record.GetItemMD(i);
        if (item.GetType() == IKeywordDataMD::MDType::Real
            && static_cast<const IKeywordRealMD&>(item).GetMeasurement())
            items.push_back(i);
    }
    return items;
}

void TargetSeries::Add(const std::string& keyword, const std::vector<int>& items,
    const IKeywordRecordData& record, const std::string& name, std::size_t step)
{
    for (const int item : items) {
        const auto value = Get<double>(record, item);
        if (!value)
            continue;
        const auto& md = static_cast<const IKeywordRealMD&>(*AsRecord(*record.GetMD()).GetItemMD(item));
        const std::string key = keyword + ' ' + md.GetName();
        if (!series_.contains(key)) {
            order_.push_back(key);
            series_[key] = {{"of", of_}, {"keyword", keyword}, {"item", md.GetName()},
                {"text", md.GetDescription()}, {"unit", UnitText(*md.GetMeasurement(), units_)},
                {"isRate", md.GetMeasurement()->find("rate") != std::string::npos}};
        }
        values_[key][name].push_back({step, *value});
    }
}

void TargetSeries::Change(const std::string& keyword, const std::string& item, const std::string& name,
    std::size_t step, double value)
{
    const std::string key = keyword + ' ' + item;
    if (series_.contains(key))
        values_[key][name].push_back({step, value});
}

void TargetSeries::Write(ordered_json& list) const
{
    for (const std::string& key : order_) {
        list.push_back(series_.at(key));
        list.back()["values"] = values_.at(key);
    }
}

} // namespace Veld::Quor::Tools
