#include "tools/quor/commands/CommonOptions.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Words = std::vector<std::string>;

Words SectionWords()
{
    Words words;
    for (int i = 0; i < SectionType::Count; ++i)
        words.push_back(SectionType::ToString(static_cast<SectionType::Enum>(i)));
    return words;
}

template <class T>
Words WordsOf()
{
    Words words;
    for (const auto& row : T::EnumInfos())
        words.push_back(row.text);
    return words;
}

/// The types that a keyword's values can have. An assignment stands in a map only.
constexpr MDType::Enum valueTypes[] = {MDType::Integer, MDType::Real, MDType::String, MDType::Boolean,
    MDType::Choice, MDType::Line, MDType::Record, MDType::List, MDType::Map, MDType::Raw, MDType::None};

Words TypeWords()
{
    Words words;
    for (const MDType::Enum type : valueTypes)
        words.push_back(TypeWord(type));
    return words;
}

void AddWordOption(CLI::App& command, const char* name, const char* description, const Words& words,
    const std::function<void(const std::string&)>& take)
{
    command.add_option_function<std::string>(name, take, description)
        ->transform(CLI::IsMember(words, CLI::ignore_case))
        ->type_name("NAME")
        ->take_last();
}

} // namespace

void AddSectionOption(
    CLI::App& command, const std::function<void(SectionType::Enum)>& set, const char* description)
{
    AddWordOption(command, "--section", description, SectionWords(),
        [set](const std::string& word) { set(SectionType::FromString(word)); });
}

void AddSimulatorOption(CLI::App& command, const std::function<void(SimulatorType::Enum)>& set,
    const char* name, const char* description)
{
    AddWordOption(command, name, description, WordsOf<SimulatorType>(),
        [set](const std::string& word) { set(SimulatorType::FromString(word)); });
}

void AddModeOption(CLI::App& command, const std::function<void(SimulatorModeType::Enum)>& set,
    const char* name, const char* description)
{
    AddWordOption(command, name, description, WordsOf<SimulatorModeType>(),
        [set](const std::string& word) { set(SimulatorModeType::FromString(word)); });
}

void AddUnitsOption(CLI::App& command, std::optional<UnitSystem::Enum>& value, const char* description)
{
    AddWordOption(command, "--units", description, WordsOf<UnitSystem>(),
        [&value](const std::string& word) { value = UnitSystem::FromString(word); });
}

void AddTypeOption(CLI::App& command, std::optional<MDType::Enum>& value)
{
    AddWordOption(command, "--type", "Type of the values; for a list, the type of its items", TypeWords(),
        [&value](const std::string& word) {
            value = *std::find_if(std::begin(valueTypes), std::end(valueTypes),
                [&word](MDType::Enum type) { return TypeWord(type) == word; });
        });
}

void AddCountOption(CLI::App& command, const std::string& name, const std::string& description,
    std::size_t without, const std::function<void(std::size_t)>& set)
{
    command.add_option_function<std::size_t>(name, set, description)
        ->check(CLI::Validator(
            [](const std::string& word) {
                const bool isCount = word.find_first_not_of("0123456789") == std::string::npos;
                return isCount ? std::string()
                               : fmt::format("'{}' is not a whole number; expected 0 or more", word);
            },
            ""))
        ->type_name("N")
        ->default_str(fmt::format("{}", without))
        ->take_last();
}

void AddFormatOption(CLI::App& command, bool& isJson)
{
    AddWordOption(command, "--format", "Output format; the default is text", {"text", "json"},
        [&isJson](const std::string& word) { isJson = word == "json"; });
}

} // namespace Veld::Quor::Tools
