#include "quor/deck/internal/compare/WellSummary.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/read/data/DataShape.h"

#include <string_view>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

/// That of the tree in which groups are.
std::string FindTopGroup(const RuleSet& rules)
{
    for (const TreeRule& tree : rules.trees) {
        for (const NameRule& names : rules.names) {
            if (names.noun == tree.noun && !names.always.empty())
                return names.always.front();
        }
    }
    return {};
}

} // namespace

WellSummary::WellSummary(const RuleSet& rules, RolePlans& plans)
    : plans_(plans)
    , topGroup_(FindTopGroup(rules))
{
}

void WellSummary::Follow(const KeywordInstance& keyword, const Core::Service::Time& now)
{
    if (!keyword.data || !IsListOfRecords(keyword.data->GetMD(), {}))
        return;
    const KeywordRoles* const roles = plans_.Find(*keyword.syntax);
    if (!roles || roles->record.items.empty())
        return;
    keyword_ = &keyword.syntax->GetName();
    now_ = now;
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const Record& record = *static_cast<const Record*>(list.GetData(i));
        const RecordItems items(record, roles->record);
        ReadRecord(items);
        ForEachWell(items.FindName(Role::WellThatIsControlled), [&](Entry& entry) {
            entry.control = {keyword_, &record, &roles->record, Control::Shown::AsGiven};
        });
    }
}

void WellSummary::ReadRecord(const RecordItems& items)
{
    if (items.Has(Role::WellThatBegins))
        ReadWell(items);
    if (items.Has(Role::GroupInTheTree))
        ReadGroup(items);
    if (items.Has(Role::WellThatIsCompleted))
        ReadCompletion(items);
    if (items.Has(Role::WellThatOpensOrShuts))
        ReadStatus(items);
}

void WellSummary::ReadWell(const RecordItems& items)
{
    const std::string name = items.FindName(Role::WellThatBegins);
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
    entry.well.group = items.FindName(Role::GroupOfWell);
    if (!entry.well.group.empty())
        AddGroup(entry.well.group, topGroup_, false);
}

void WellSummary::ReadGroup(const RecordItems& items)
{
    const std::string name = items.FindName(Role::GroupInTheTree);
    const std::string parent = items.FindName(Role::GroupAbove);
    if (name.empty() || parent.empty())
        return;
    AddGroup(parent, topGroup_, false);
    AddGroup(name, parent, true);
}

void WellSummary::ReadCompletion(const RecordItems& items)
{
    const std::array<int, 4> cells{items.FindIndex(Role::CompletionI), items.FindIndex(Role::CompletionJ),
        items.FindIndex(Role::CompletionFirstK), items.FindIndex(Role::CompletionLastK)};
    const long long count = static_cast<long long>(cells[3]) - cells[2] + 1;
    if (count <= 0)
        return;
    ForEachWell(items.FindName(Role::WellThatIsCompleted), [&](Entry& entry) {
        if (entry.completions.insert(cells).second)
            entry.well.completions += count;
    });
}

/// Of a well, not of a completion. One that opens has the control that it had.
void WellSummary::ReadStatus(const RecordItems& items)
{
    if (items.HasIndex(Role::CellOfStatus))
        return;
    const std::string status = items.FindOtherWord(Role::StatusOfWell);
    ForEachWell(items.FindName(Role::WellThatOpensOrShuts), [&](Entry& entry) {
        entry.control.shown = status.empty() ? Control::Shown::AsOpen : Control::Shown::Text;
        entry.well.control = *keyword_ + ' ' + status;
    });
}

std::string WellSummary::TextOf(const Control& control)
{
    if (!control.keyword)
        return {};
    std::string text = *control.keyword;
    const RecordItems items(*control.record, *control.roles);
    const auto add = [&text](const std::string& word) { text += word.empty() ? "" : ' ' + word; };
    add(items.FindWord(Role::InjectedFluid));
    if (control.shown == Control::Shown::AsGiven)
        add(items.FindOtherWord(Role::StatusOfWell));
    add(items.FindWord(Role::ControlOfWell));
    return text;
}

/// `isFirm`: the parent holds against what was known before.
void WellSummary::AddGroup(const std::string& name, const std::string& parent, bool isFirm)
{
    const auto [at, isNew] = parents_.try_emplace(name, name == topGroup_ ? "" : parent);
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
    if (!groups_.empty() && !topGroup_.empty())
        addTree(topGroup_);
    for (const std::string& name : groups_) { // what hangs in a circle
        if (seen.count(name) == 0)
            addTree(name);
    }
    return groups;
}

} // namespace Veld::Quor::Core::Decks
