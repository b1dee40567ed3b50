#include "tools/quor/settings/Settings.h"

#include "tools/quor/settings/SettingInfo.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Tools {

namespace {

template <class T>
void MergeValue(const SettingInfo& /*setting*/, const std::optional<T>& given, std::optional<T>& value)
{
    if (given)
        value = given;
}

void MergeValue(const SettingInfo& setting, const std::optional<Settings::Words>& given,
    std::optional<Settings::Words>& value)
{
    if (!given)
        return;
    if (!value || !setting.IsAdded())
        value.emplace();
    value->insert(value->end(), given->begin(), given->end());
}

void MergeValue(const SettingInfo& /*setting*/, const std::optional<Settings::Texts>& given,
    std::optional<Settings::Texts>& value)
{
    if (!given)
        return;
    if (!value)
        value.emplace();
    for (const auto& [name, text] : *given)
        value->insert_or_assign(name, text);
}

void MergeOrigins(const Settings& given, Settings& merged)
{
    for (const auto& [name, origin] : given.origins) {
        const SettingInfo* const setting = FindSetting(name);
        std::string& known = merged.origins[name];
        known =
            setting && setting->IsAdded() && !known.empty() ? fmt::format("{}, {}", known, origin) : origin;
    }
}

void Remove(const Settings::Words& codes, std::optional<Settings::Words>& from)
{
    if (!from)
        return;
    from->erase(std::remove_if(from->begin(), from->end(),
                    [&codes](const std::string& code) {
                        return std::find(codes.begin(), codes.end(), code) != codes.end();
                    }),
        from->end());
}

} // namespace

Settings Merge(const Settings& given, const Settings& ofProject)
{
    Settings merged = ofProject;
    if (given.selected)
        Remove(*given.selected, merged.ignored);
    for (const SettingInfo& setting : AllSettings())
        std::visit([&](auto member) { MergeValue(setting, given.*member, merged.*member); }, setting.member);
    MergeOrigins(given, merged);
    return merged;
}

} // namespace Veld::Quor::Tools
