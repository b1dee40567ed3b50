#include "tools/quor/settings/SettingOptions.h"

#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/settings/SettingInfo.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

/// Adds the option of one setting, by the type of its value.
class SettingOption {
public:
    SettingOption(CLI::App& command, Settings& given, const SettingInfo& setting)
        : command_(command)
        , given_(given)
        , setting_(setting)
    {
    }

    void Add(std::optional<bool>& value) const
    {
        command_.add_flag_callback(
            setting_.option, [into = Into(value)] { into(true); }, setting_.help);
    }
    void Add(std::optional<std::size_t>& value) const
    {
        AddCountOption(command_, setting_.option, setting_.help, std::stoul(setting_.without), Into(value));
    }
    void Add(std::optional<std::string>& value) const
    {
        CLI::Option* const option =
            command_.add_option_function<std::string>(setting_.option, Into(value), setting_.help);
        if (!setting_.words.empty())
            option->transform(CLI::IsMember(setting_.words, CLI::ignore_case));
        option->type_name(setting_.value)->take_last();
    }
    void Add(std::optional<Settings::Words>& value) const
    {
        CLI::Option* const option = command_.add_option_function<Settings::Words>(
            setting_.option, Into(value), fmt::format("{}; can be repeated", setting_.help));
        option->type_name(setting_.value)->allow_extra_args(false);
        if (!setting_.IsPath())
            option->delimiter(',');
    }
    void Add(std::optional<Settings::Texts>& value) const
    {
        const auto add = [into = Into(value), &setting = setting_](const Settings::Words& words) {
            Settings::Texts texts;
            for (const std::string& word : words)
                texts.insert_or_assign(PlainName(word.substr(0, word.find('='))), TextOf(word, setting));
            into(texts);
            return true;
        };
        command_.add_option(setting_.option, add, fmt::format("{}; can be repeated", setting_.help))
            ->type_name(setting_.value)
            ->expected(1, 1'000'000)
            ->allow_extra_args(false);
    }

private:
    /// What sets the value, and notes where it is from.
    template <class T>
    std::function<void(const T&)> Into(std::optional<T>& value) const
    {
        return [&value, &given = given_, name = setting_.name](const T& word) {
            value = word;
            given.origins[name] = commandLine;
            if constexpr (std::is_same_v<T, Settings::Texts>) {
                for (const auto& [key, text] : word)
                    given.origins[fmt::format("{}.{}", name, key)] = commandLine;
            }
        };
    }

    /// What is after the sign of NAME=VALUE.
    static std::string TextOf(const std::string& word, const SettingInfo& setting)
    {
        const std::size_t sign = word.find('=');
        try {
            if (sign == std::string::npos)
                throw std::invalid_argument(word);
            (Decks::ReadOptions().*setting.setText)(word.substr(0, sign), word.substr(sign + 1));
            return word.substr(sign + 1);
        } catch (const std::invalid_argument&) {
            throw CLI::ValidationError(
                setting.option, fmt::format("'{}' is not in the form {}", word, setting.value));
        }
    }

    CLI::App& command_;
    Settings& given_;
    const SettingInfo& setting_;
};

} // namespace

void AddSettingOptions(CLI::App& command, Settings& given, std::initializer_list<const char*> names)
{
    for (const char* const name : names) {
        const SettingInfo& setting = *FindSetting(name);
        std::visit(
            [&](auto member) { SettingOption(command, given, setting).Add(given.*member); }, setting.member);
    }
}

void AddSyntaxOptions(CLI::App& command, SettingSources& sources)
{
    AddSettingOptions(command, sources.given, {"syntax", "syntax-folder"});
    AddSettingsFileOptions(command, sources);
}

void AddSettingsFileOptions(CLI::App& command, SettingSources& sources)
{
    command
        .add_option("--settings", sources.file,
            "Settings file; without it, the nearest quor.toml in the folder of the deck and those above it")
        ->type_name("FILE")
        ->take_last();
    command.add_flag("--no-settings", sources.isWithoutFile, "Use no settings file")->excludes("--settings");
}

} // namespace Veld::Quor::Tools
