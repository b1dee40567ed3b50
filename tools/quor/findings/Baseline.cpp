#include "tools/quor/findings/Baseline.h"

#include "quor/deck/DeckSource.h"
#include "tools/quor/terminal/Json.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Json = nlohmann::ordered_json;

namespace {

constexpr int version = 1;
constexpr const char* advice = "create a new baseline with --write-baseline";

/// As it comes back from a file: what is no UTF-8 is replaced.
std::string AsStored(std::string_view text)
{
    const std::string stored =
        nlohmann::json(std::string(text)).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return nlohmann::json::parse(stored).get<std::string>();
}

std::string_view Trim(std::string_view line)
{
    constexpr std::size_t longest = 160;
    const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
    line = line.substr(first, longest);
    return line.substr(0, line.find_last_not_of(" \t") + 1);
}

/// Makes the keys of a deck's findings.
class KeyMaker {
public:
    explicit KeyMaker(const std::string& deck)
        : folder_((std::filesystem::path(deck).parent_path() / "").string())
    {
    }

    /// Lasts until the next one.
    const Baseline::Key& Make(const Decks::DeckFiles& files, const Decks::TextRange& range, Decks::Code code)
    {
        const bool isSameLine =
            begin_ < end_ && range.file == file_ && range.offset >= begin_ && range.offset < end_;
        if (!isSameLine) // a line may be long, and have many findings
            GoTo(files, range);
        key_.code = InfoOf(code).name;
        return key_;
    }

private:
    void GoTo(const Decks::DeckFiles& files, const Decks::TextRange& range)
    {
        const auto [line, begin] = files.LineOf(range);
        std::string_view name = files.Get(range.file).name;
        if (name.starts_with(folder_))
            name.remove_prefix(folder_.size());
        key_.file = AsStored(name);
        key_.text = AsStored(Trim(line));
        file_ = range.file;
        begin_ = begin;
        end_ = begin + line.size();
    }

    std::string folder_; // ends in a slash; empty: the current one
    Baseline::Key key_;
    std::uint32_t file_ = 0;
    std::size_t begin_ = 0; // of the line that the key is for
    std::size_t end_ = 0;
};

Json Parse(std::string_view text)
{
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        const std::string_view before = text.substr(0, error.byte == 0 ? 0 : error.byte - 1);
        throw BaselineError(fmt::format(
            "line {}: invalid JSON; {}", std::count(before.begin(), before.end(), '\n') + 1, advice));
    }
}

std::string TextOf(const Json& entry, const char* name, std::size_t number)
{
    if (!entry.is_object() || !entry.contains(name) || !entry[name].is_string())
        throw BaselineError(fmt::format("finding {}: expected a string \"{}\"; {}", number, name, advice));
    return entry[name].get<std::string>();
}

std::size_t CountOf(const Json& entry, std::size_t number)
{
    if (!entry.contains("count") || !entry["count"].is_number_unsigned() || entry["count"] == 0)
        throw BaselineError(fmt::format("finding {}: expected \"count\" above 0; {}", number, advice));
    return entry["count"].get<std::size_t>();
}

} // namespace

Baseline Baseline::Read(const std::string& path)
{
    const auto source = Decks::SourceText::FromFile(path);
    const Json json = Parse(source->GetText());
    if (!json.is_object() || !json.contains("findings") || !json["findings"].is_array())
        throw BaselineError(fmt::format("expected an array \"findings\"; {}", advice));
    if (!json.contains("version") || json["version"] != version)
        throw BaselineError(fmt::format("expected \"version\" {}; {}", version, advice));
    Baseline baseline;
    std::size_t number = 0;
    for (const Json& entry : json["findings"]) {
        ++number;
        Key key{TextOf(entry, "code", number), TextOf(entry, "file", number), TextOf(entry, "text", number)};
        baseline.counts_[std::move(key)] += CountOf(entry, number);
    }
    return baseline;
}

std::string Baseline::ToText() const
{
    Json findings = Json::array();
    for (const auto& [key, count] : counts_)
        findings.push_back({{"code", key.code}, {"file", key.file}, {"text", key.text}, {"count", count}});
    return Tools::ToText({{"version", version}, {"findings", std::move(findings)}});
}

Decks::KnownFinding Baseline::MakeFilter(const std::string& deck) const
{
    return [left = counts_, keys = KeyMaker(deck)](
               const Decks::DeckFiles& files, const Decks::TextRange& range, Decks::Code code) mutable {
        const auto at = left.find(keys.Make(files, range, code));
        if (at == left.end() || at->second == 0)
            return false;
        --at->second;
        return true;
    };
}

Decks::KnownFinding Baseline::MakeRecorder(const std::string& deck, Counts& counts)
{
    return [&counts, keys = KeyMaker(deck)](
               const Decks::DeckFiles& files, const Decks::TextRange& range, Decks::Code code) mutable {
        ++counts[keys.Make(files, range, code)];
        return true;
    };
}

void Baseline::Add(const Counts& counts)
{
    for (const auto& [key, count] : counts) {
        std::size_t& known = counts_[key];
        known = std::max(known, count);
    }
}

std::size_t Baseline::GetCount() const
{
    std::size_t all = 0;
    for (const auto& [key, count] : counts_)
        all += count;
    return all;
}

} // namespace Veld::Quor::Tools
