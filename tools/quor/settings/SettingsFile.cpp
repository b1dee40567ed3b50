#include "tools/quor/settings/SettingsFile.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/PrintableText.h"
#include "tools/quor/settings/SettingInfo.h"
#include "tools/quor/settings/TomlParser.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;

namespace {

constexpr const char* fileName = "quor.toml";

/// "; did you mean this?"; empty if nothing is near.
std::string Advice(const Settings::Words& known, const std::string& word)
{
    const Settings::Words nearest = Decks::FindNearest(known, word);
    return nearest.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(nearest, ", "));
}

/// Reads the values of one settings file.
class SettingsReader {
public:
    explicit SettingsReader(const std::string& file)
        : file_(file)
        , folder_(fs::path(file).parent_path())
    {
    }

    Settings Read()
    {
        const auto source = Decks::SourceText::FromFile(file_);
        ReadTable(toml::parse(source->GetText(), file_), "");
        return std::move(settings_);
    }

private:
    void ReadTable(const toml::table& table, const std::string& prefix);
    void ReadValue(const SettingInfo& setting, const toml::node& node);
    void Take(const SettingInfo& setting, const toml::node& node, std::optional<bool>& value);
    void Take(const SettingInfo& setting, const toml::node& node, std::optional<std::size_t>& value);
    void Take(const SettingInfo& setting, const toml::node& node, std::optional<std::string>& value);
    void Take(const SettingInfo& setting, const toml::node& node, std::optional<Settings::Words>& value);
    void Take(const SettingInfo& setting, const toml::node& node, std::optional<Settings::Texts>& value);
    std::string WordIn(const SettingInfo& setting, const toml::node& node, const char* expected) const;
    std::string PathOf(const SettingInfo& setting, const std::string& path) const;

    std::string OriginOf(const toml::node& node) const
    {
        return fmt::format("{}:{}", file_, node.source().begin.line);
    }
    [[noreturn]] void Refuse(toml::source_index line, const std::string& message) const
    {
        throw SettingsError(fmt::format("{}:{}: {}", file_, line, message));
    }
    [[noreturn]] void Refuse(
        const SettingInfo& setting, const toml::node& node, const std::string& message) const
    {
        Refuse(node.source().begin.line, fmt::format("{}: {}", setting.name, message));
    }

    const std::string& file_;
    fs::path folder_;
    Settings settings_;
};

/// What may have been meant by an unknown name: one in another table, or one that is spelt alike.
std::string NameAdvice(const std::string& name)
{
    const std::string last = name.substr(name.rfind('.') + 1);
    Settings::Words known;
    for (const SettingInfo& setting : AllSettings()) {
        if (std::string(setting.name).ends_with('.' + last) || setting.name == last)
            return fmt::format("; did you mean {}?", setting.name);
        known.emplace_back(setting.name);
    }
    return Advice(known, name);
}

bool IsTable(const std::string& name)
{
    const auto& all = AllSettings();
    return std::any_of(all.begin(), all.end(),
        [&name](const SettingInfo& setting) { return std::string(setting.name).starts_with(name + '.'); });
}

void SettingsReader::ReadTable(const toml::table& table, const std::string& prefix)
{
    for (const auto& [key, node] : table) {
        const std::string name = prefix + std::string(key.str());
        if (const SettingInfo* const setting = FindSetting(name))
            ReadValue(*setting, node);
        else if (node.is_table() && IsTable(name))
            ReadTable(*node.as_table(), name + '.');
        else
            Refuse(key.source().begin.line, fmt::format("unknown setting '{}'{}", name, NameAdvice(name)));
    }
}

void SettingsReader::ReadValue(const SettingInfo& setting, const toml::node& node)
{
    settings_.origins[setting.name] = OriginOf(node);
    std::visit([&](auto member) { Take(setting, node, settings_.*member); }, setting.member);
}

void SettingsReader::Take(const SettingInfo& setting, const toml::node& node, std::optional<bool>& value)
{
    value = node.value_exact<bool>();
    if (!value)
        Refuse(setting, node, "invalid value; expected true or false");
}

void SettingsReader::Take(
    const SettingInfo& setting, const toml::node& node, std::optional<std::size_t>& value)
{
    const auto number = node.value_exact<std::int64_t>();
    if (!number || *number < 0)
        Refuse(setting, node, "invalid value; expected a whole number of 0 or more");
    value = static_cast<std::size_t>(*number);
}

void SettingsReader::Take(
    const SettingInfo& setting, const toml::node& node, std::optional<std::string>& value)
{
    value = WordIn(setting, node, "a text in quotes");
}

void SettingsReader::Take(
    const SettingInfo& setting, const toml::node& node, std::optional<Settings::Words>& value)
{
    constexpr const char* expected = R"(a list of texts, as in ["a", "b"])";
    const toml::array* const list = node.as_array();
    if (!list)
        Refuse(setting, node, fmt::format("invalid value; expected {}", expected));
    value.emplace();
    for (const toml::node& element : *list)
        value->push_back(WordIn(setting, element, expected));
}

void SettingsReader::Take(
    const SettingInfo& setting, const toml::node& node, std::optional<Settings::Texts>& value)
{
    const toml::table* const table = node.as_table();
    if (!table)
        Refuse(setting, node, fmt::format("invalid value; expected a table, as in [{}]", setting.name));
    value.emplace();
    for (const auto& [key, element] : *table) {
        const std::string name = PlainName(std::string(key.str()));
        const auto number = element.value_exact<std::int64_t>();
        const std::string text = number ? fmt::format("{}", *number)
                                        : WordIn(setting, element, "a text in quotes or a whole number");
        try {
            (Decks::ReadOptions().*setting.setText)(name, text);
        } catch (const std::invalid_argument& error) {
            Refuse(setting, element, error.what());
        }
        value->insert_or_assign(name, text);
        settings_.origins[fmt::format("{}.{}", setting.name, name)] = OriginOf(element);
    }
}

/// A text, or one of the words of the setting in any case.
std::string SettingsReader::WordIn(
    const SettingInfo& setting, const toml::node& node, const char* expected) const
{
    const auto text = node.value_exact<std::string>();
    if (!text)
        Refuse(setting, node, fmt::format("invalid value; expected {}", expected));
    if (setting.words.empty())
        return PathOf(setting, *text);
    const auto word = std::find_if(setting.words.begin(), setting.words.end(),
        [&text](const std::string& known) { return ToUpper(known) == ToUpper(*text); });
    if (word == setting.words.end())
        Refuse(setting, node,
            fmt::format("unknown name '{}'; expected one of {}", *text, fmt::join(setting.words, ", ")));
    return *word;
}

/// Aliases are of use in any folder, so that their paths are absolute.
std::string SettingsReader::PathOf(const SettingInfo& setting, const std::string& path) const
{
    if (!setting.IsPath())
        return path;
    const fs::path whole = (folder_ / path).lexically_normal();
    return setting.setText ? fs::absolute(whole).string() : whole.string();
}

} // namespace

std::string FindSettingsFile(const std::string& deck)
{
    std::error_code error;
    const fs::path current = fs::current_path(error);
    fs::path folder = (current / fs::path(deck).parent_path()).lexically_normal();
    for (;; folder = folder.parent_path()) {
        const fs::path file = folder / fileName;
        if (fs::is_regular_file(file, error)) {
            const fs::path relative = file.lexically_relative(current);
            const bool isBelow = !relative.empty() && *relative.begin() != "..";
            return (isBelow && fs::path(deck).is_relative() ? relative : file).string();
        }
        if (!folder.has_relative_path())
            return {};
    }
}

Settings ReadSettingsFile(const std::string& file)
{
    try {
        return SettingsReader(file).Read();
    } catch (const toml::parse_error& error) {
        throw SettingsError(fmt::format("{}:{}: invalid TOML: {}", file, error.source().begin.line,
            Decks::MakePrintable(error.description())));
    } catch (const Decks::SourceError& error) {
        throw SettingsError(fmt::format("can't read '{}': {}", file, error.what()));
    }
}

} // namespace Veld::Quor::Tools
