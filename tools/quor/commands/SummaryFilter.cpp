#include "tools/quor/commands/SummaryFilter.h"

#include "quor/foundation/service/Optional.h"
#include "tools/quor/terminal/TextLayout.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <string_view>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

template <class Category>
std::vector<std::string> NamesOf()
{
    std::vector<std::string> names;
    for (int i = 0;; ++i) {
        const std::string& name = Category::ToString(static_cast<typename Category::Enum>(i));
        if (name.empty())
            return names;
        names.push_back(name);
    }
}

/// Each word with a capital and small letters behind it, as documents write them.
std::string Capitalise(std::string_view text)
{
    std::string capitalised;
    for (const char c : text) {
        const bool isFirst = capitalised.empty() || capitalised.back() == ' ';
        const auto letter = static_cast<unsigned char>(c);
        capitalised += static_cast<char>(isFirst ? std::toupper(letter) : std::tolower(letter));
    }
    return capitalised;
}

/// By the name for people or the text of documents, in any case.
template <class Category>
std::optional<typename Category::Enum> FindCategory(const std::string& word)
{
    const auto names = NamesOf<Category>();
    const auto name = std::find_if(names.begin(), names.end(),
        [&word](const std::string& text) { return ToUpper(text) == ToUpper(word); });
    if (name != names.end())
        return static_cast<typename Category::Enum>(name - names.begin());
    bool found = false;
    const auto value = Category::FromString(Capitalise(word), &found);
    return found ? std::optional(value) : std::nullopt;
}

template <class Category>
void AddOption(CLI::App& command, const char* name, const char* description,
    std::optional<typename Category::Enum>& value)
{
    const std::string allowed = fmt::format("{{{}}}", fmt::join(NamesOf<Category>(), ","));
    const CLI::Validator validator(
        [allowed](std::string& word) {
            return FindCategory<Category>(word) ? std::string() : fmt::format("{} not in {}", word, allowed);
        },
        allowed);
    command
        .add_option_function<std::string>(
            name, [&value](const std::string& word) { value = FindCategory<Category>(word); }, description)
        ->check(validator)
        ->type_name("NAME")
        ->take_last();
}

template <class T>
bool Meets(const std::optional<T>& wanted, const Core::Service::Optional<T>& value)
{
    return !wanted || (value && *value == *wanted);
}

} // namespace

bool SummaryFilter::Admits(const ISummaryMnemonicInfo* info) const
{
    if (!info)
        return !entity && !flow && !function && !option && !phase;
    return Meets(entity, info->GetEntity()) && Meets(flow, info->GetFlow())
        && Meets(function, info->GetFunction()) && Meets(option, info->GetOption())
        && Meets(phase, info->GetPhase());
}

void AddSummaryOptions(CLI::App& command, SummaryFilter& filter)
{
    AddOption<SummaryEntity>(command, "--entity", "Entity of the summary vector", filter.entity);
    AddOption<SummaryFlow>(command, "--flow", "Direction of its flow", filter.flow);
    AddOption<SummaryFunction>(
        command, "--function", "Kind of quantity, such as a rate or a total", filter.function);
    AddOption<SummaryOption>(command, "--option", "Simulator option that it belongs to", filter.option);
    AddOption<SummaryPhase>(command, "--phase", "Phase of the quantity", filter.phase);
}

std::vector<std::pair<const char*, std::string>> CategoriesOf(const ISummaryMnemonicInfo& info)
{
    std::vector<std::pair<const char*, std::string>> categories;
    if (const auto entity = info.GetEntity())
        categories.emplace_back("entity", SummaryEntity::ToString(*entity));
    if (const auto flow = info.GetFlow())
        categories.emplace_back("flow", SummaryFlow::ToString(*flow));
    if (const auto function = info.GetFunction())
        categories.emplace_back("function", SummaryFunction::ToString(*function));
    if (const auto option = info.GetOption())
        categories.emplace_back("option", SummaryOption::ToString(*option));
    if (const auto phase = info.GetPhase())
        categories.emplace_back("phase", SummaryPhase::ToString(*phase));
    return categories;
}

nlohmann::ordered_json CategoriesJson(const ISummaryMnemonicInfo& info)
{
    auto json = nlohmann::ordered_json::object();
    for (const auto& [category, name] : CategoriesOf(info))
        json[category] = name;
    return json;
}

} // namespace Veld::Quor::Tools
