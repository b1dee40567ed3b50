#include "tools/quor/findings/Baseline.h"

#include "quor/deck/DeckSource.h"
#include "quor/deck/PrintableText.h"
#include "tools/quor/terminal/Json.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

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

/// A text that is parsed, and how far that is: the parser tells positions of its own errors alone.
class JsonText {
public:
    explicit JsonText(std::string_view text)
        : text_(text)
        , last_(text.data())
    {
    }

    /// Throws `BaselineError`.
    Json Parse()
    {
        bool isFinding = false; // what comes at depth 2
        const auto note = [&](int depth, Json::parse_event_t event, Json& parsed) {
            if (event == Json::parse_event_t::key && depth == 1)
                isFinding = parsed == "findings";
            else if (depth == 2 && isFinding && event != Json::parse_event_t::object_end
                && event != Json::parse_event_t::array_end)
                findings_.push_back(last_);
            return true;
        };
        try {
            return Json::parse(
                Characters{text_.data(), &last_}, Characters{text_.data() + text_.size(), &last_}, note);
        } catch (const Json::exception&) { // also for a number beyond all bounds
            throw BaselineError(fmt::format("line {}: invalid JSON; {}", LineOf(last_), advice));
        }
    }

    /// `finding`: from 0
    [[noreturn]] void Fail(std::size_t finding, const std::string& what) const
    {
        throw BaselineError(fmt::format(
            "line {}: finding {}: {}; {}", LineOf(findings_[finding]), finding + 1, what, advice));
    }

private:
    /// Notes the last character that was asked for.
    struct Characters {
        using iterator_category = std::input_iterator_tag;
        using value_type = char;
        using difference_type = std::ptrdiff_t;
        using pointer = const char*;
        using reference = char;

        const char* at;
        const char** last;

        char operator*() const { return *(*last = at); }
        Characters& operator++()
        {
            ++at;
            return *this;
        }
        bool operator==(const Characters& other) const { return at == other.at; }
        bool operator!=(const Characters& other) const { return at != other.at; }
    };

    std::ptrdiff_t LineOf(const char* place) const { return std::count(text_.data(), place, '\n') + 1; }

    std::string_view text_;
    const char* last_;
    std::vector<const char*> findings_; // where each begins, or ends if it is no object
};

void CheckMembers(const JsonText& text, const Json& entry, std::size_t finding)
{
    if (!entry.is_object())
        text.Fail(finding, "expected an object");
    for (const char* const name : {"code", "file", "text"}) {
        if (!entry.contains(name) || !entry[name].is_string())
            text.Fail(finding, fmt::format("expected a string \"{}\"", name));
    }
    if (!entry.contains("count") || !entry["count"].is_number_unsigned() || entry["count"] == 0)
        text.Fail(finding, "expected \"count\" as a whole number above 0");
    for (const auto& [name, value] : entry.items()) {
        if (name != "code" && name != "file" && name != "text" && name != "count")
            text.Fail(finding, fmt::format("unknown member \"{}\"", Decks::MakePrintable(name)));
    }
}

} // namespace

Baseline Baseline::Read(const std::string& path)
{
    try {
        const auto source = Decks::SourceText::FromFile(path);
        return FromText(source->GetText());
    } catch (const std::runtime_error& error) {
        throw BaselineError(fmt::format("can't read the baseline '{}': {}", path, error.what()));
    }
}

Baseline Baseline::FromText(std::string_view bytes)
{
    JsonText text(bytes);
    const Json json = text.Parse();
    if (!json.is_object() || !json.contains("findings") || !json["findings"].is_array())
        throw BaselineError(fmt::format("expected an array \"findings\"; {}", advice));
    if (!json.contains("version") || json["version"] != version)
        throw BaselineError(fmt::format("expected \"version\" {}; {}", version, advice));
    Baseline baseline;
    const Json& findings = json["findings"];
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const Json& entry = findings[i];
        CheckMembers(text, entry, i);
        const auto textOf = [&entry](const char* name) { return entry[name].get<std::string>(); };
        baseline.counts_[{textOf("code"), textOf("file"), textOf("text")}] +=
            entry["count"].get<std::size_t>();
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
