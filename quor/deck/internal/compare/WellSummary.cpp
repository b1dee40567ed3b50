#include "quor/deck/internal/compare/WellSummary.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

constexpr const char* topGroup = "FIELD";

} // namespace

/// The word of a choice that isn't the default.
std::string WellSummary::FindOtherWord(const Record& record, const char* name) const
{
    const RecordItem item = items_.Find(record, name, MDType::Choice);
    if (!item.md || item.value == DefaultOf(*item.md, SimulatorType::Any).value)
        return {};
    return ToText(*item.md, item.value);
}

const WellSummary::Reader* WellSummary::FindReader(const std::string& keyword)
{
    static constexpr Reader readers[] = {{"WELSPECS", &WellSummary::ReadWell},
        {"WELSPECL", &WellSummary::ReadWell}, {"GRUPTREE", &WellSummary::ReadGroup},
        {"COMPDAT", &WellSummary::ReadCompletion}, {"COMPDATL", &WellSummary::ReadCompletion},
        {"COMPDATM", &WellSummary::ReadCompletion}, {"WCONPROD", &WellSummary::ReadControl},
        {"WCONINJE", &WellSummary::ReadControl}, {"WCONHIST", &WellSummary::ReadControl},
        {"WCONINJH", &WellSummary::ReadControl}, {"WELCNTL", &WellSummary::ReadControl},
        {"WELOPEN", &WellSummary::ReadStatus}};
    const auto* const reader = std::find_if(std::begin(readers), std::end(readers),
        [&keyword](const Reader& row) { return keyword == row.keyword; });
    return reader == std::end(readers) ? nullptr : reader;
}

void WellSummary::Follow(const KeywordInstance& keyword, const Core::Service::Time& now)
{
    if (!keyword.data || !IsListOfRecords(keyword.data->GetMD(), {}))
        return;
    const Reader* const reader = FindReader(keyword.syntax->GetName());
    if (!reader)
        return;
    keyword_ = &keyword.syntax->GetName();
    now_ = now;
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        (this->*reader->read)(*static_cast<const Record*>(list.GetData(i)));
}

void WellSummary::ReadWell(const Record& record)
{
    const std::string name = items_.FindName(record, "WELL");
    if (name.empty())
        return;
    const std::size_t number = wells_.size();
    const auto [at, isNew] = wells_.try_emplace(name);
    Entry& entry = at->second;
    if (isNew) {
        entry.number = number;
        entry.well.name = name;
        entry.well.since = now_;
    }
    entry.well.group = items_.FindName(record, "GROUP");
    if (!entry.well.group.empty())
        AddGroup(entry.well.group, topGroup, false);
}

void WellSummary::ReadGroup(const Record& record)
{
    const std::string name = items_.FindName(record, "GROUP");
    const std::string parent = items_.FindName(record, "PARENT");
    if (name.empty() || parent.empty())
        return;
    AddGroup(parent, topGroup, false);
    AddGroup(name, parent, true);
}

void WellSummary::ReadCompletion(const Record& record)
{
    const std::array<int, 4> cells{items_.FindIndex(record, "I"), items_.FindIndex(record, "J"),
        items_.FindIndex(record, "K1"), items_.FindIndex(record, "K2")};
    const long long count = static_cast<long long>(cells[3]) - cells[2] + 1;
    if (count <= 0)
        return;
    ForEachWell(items_.FindName(record, "WELL"), [&](Entry& entry) {
        if (entry.completions.insert(cells).second)
            entry.well.completions += count;
    });
}

void WellSummary::ReadControl(const Record& record)
{
    ForEachWell(items_.FindName(record, "WELL"), [&](Entry& entry) {
        entry.control = {keyword_, &record, Control::Shown::AsGiven};
    });
}

/// Of a well, not of a completion. One that opens has the control that it had.
void WellSummary::ReadStatus(const Record& record)
{
    const bool isOfCompletion = items_.FindIndex(record, "I") > 0 || items_.FindIndex(record, "J") > 0
        || items_.FindIndex(record, "K") > 0;
    if (isOfCompletion)
        return;
    const std::string status = FindOtherWord(record, "STATUS");
    ForEachWell(items_.FindName(record, "WELL"), [&](Entry& entry) {
        entry.control.shown = status.empty() ? Control::Shown::AsOpen : Control::Shown::Text;
        entry.well.control = *keyword_ + ' ' + status;
    });
}

std::string WellSummary::TextOf(const Control& control) const
{
    if (!control.keyword)
        return {};
    std::string text = *control.keyword;
    const auto add = [&text](const std::string& word) { text += word.empty() ? "" : ' ' + word; };
    add(items_.FindWord(*control.record, "TYPE"));
    if (control.shown == Control::Shown::AsGiven)
        add(FindOtherWord(*control.record, "STATUS"));
    add(items_.FindWord(*control.record, "CONTROL"));
    return text;
}

/// `isFirm`: the parent holds against what was known before.
void WellSummary::AddGroup(const std::string& name, const std::string& parent, bool isFirm)
{
    const auto [at, isNew] = parents_.try_emplace(name, name == topGroup ? "" : parent);
    if (isNew)
        groups_.push_back(name);
    else if (isFirm)
        at->second = parent;
}

/// The well of that name, or those that begin with what is before an asterisk.
template <class Visit>
void WellSummary::ForEachWell(const std::string& pattern, Visit visit)
{
    if (!pattern.ends_with('*')) {
        if (const auto well = wells_.find(pattern); well != wells_.end())
            visit(well->second);
        return;
    }
    const std::string_view beginning(pattern.data(), pattern.size() - 1);
    for (auto well = wells_.lower_bound(std::string(beginning));
         well != wells_.end() && well->first.starts_with(beginning); ++well)
        visit(well->second);
}

std::vector<Well> WellSummary::GetWells() const
{
    std::vector<Well> wells(wells_.size());
    for (const auto& [name, entry] : wells_) {
        wells[entry.number] = entry.well;
        if (entry.control.shown != Control::Shown::Text)
            wells[entry.number].control = TextOf(entry.control);
    }
    return wells;
}

std::vector<Group> WellSummary::GetGroups() const
{
    std::map<std::string, std::size_t> wells;
    for (const auto& [name, entry] : wells_)
        ++wells[entry.well.group];
    std::map<std::string, std::vector<std::string>> children;
    for (auto name = groups_.rbegin(); name != groups_.rend(); ++name) // a stack turns them round again
        children[parents_.at(*name)].push_back(*name);
    if (!groups_.empty() && parents_.count(topGroup) == 0)
        children[""].emplace_back(topGroup);

    std::vector<Group> groups;
    std::set<std::string> seen;
    const auto addTree = [&](const std::string& top) {
        std::vector<std::pair<std::string, std::size_t>> waiting = {{top, 0}};
        while (!waiting.empty()) {
            const auto [name, depth] = waiting.back();
            waiting.pop_back();
            if (!seen.insert(name).second)
                continue;
            const auto parent = parents_.find(name);
            groups.push_back({name, parent == parents_.end() ? "" : parent->second, depth, wells[name]});
            for (const std::string& child : children[name])
                waiting.emplace_back(child, depth + 1);
        }
    };
    if (!groups_.empty())
        addTree(topGroup);
    for (const std::string& name : groups_) { // what hangs in a circle
        if (seen.count(name) == 0)
            addTree(name);
    }
    return groups;
}

} // namespace Veld::Quor::Core::Decks
