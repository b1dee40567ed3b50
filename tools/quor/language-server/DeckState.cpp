#include "tools/quor/language-server/DeckState.h"

#include "quor/deck/DeckUnits.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

DeckState::DeckState(Core::Decks::Deck deck, std::string root, TextVersions versions, Project project)
    : project_(std::move(project))
    , deck_(std::move(deck))
    , root_(std::move(root))
    , versions_(std::move(versions))
    , names_(deck_, project_.language->names)
    , units_(Core::Decks::UnitSystemOf(deck_))
    , byFile_(deck_.GetFiles().GetSize())
{
    for (std::uint32_t file = 0; file < deck_.GetFiles().GetSize(); ++file) {
        keys_.push_back(KeyOfPath(deck_.GetFiles().Get(file).name));
        files_.try_emplace(keys_.back(), file);
    }
    for (const Core::Decks::DeckKeyword keyword : deck_)
        byFile_[keyword.GetNameRange().file].push_back(static_cast<std::uint32_t>(keyword.GetIndex()));
}

std::string DeckState::LineText(const Core::Decks::TextRange& range) const
{
    const Core::Decks::Location location = deck_.GetFiles().LocationOf(range);
    const std::filesystem::path folder = std::filesystem::path(root_).parent_path();
    const std::string path = std::filesystem::path(location.file).lexically_relative(folder).string();
    const bool isBelow = !path.empty() && !path.starts_with("..");
    return fmt::format("{}:{}", isBelow ? path : location.file, location.line);
}

std::optional<std::uint32_t> DeckState::FindFile(const std::string& key) const
{
    const auto file = files_.find(key);
    return file == files_.end() ? std::nullopt : std::optional(file->second);
}

std::optional<std::uint32_t> DeckState::FindKeywordBefore(std::uint32_t file, std::size_t offset) const
{
    const auto& keywords = byFile_.at(file);
    const auto after = std::upper_bound(keywords.begin(), keywords.end(), offset,
        [this](std::size_t at, std::uint32_t keyword) { return at < deck_[keyword].GetNameRange().offset; });
    return after == keywords.begin() ? std::nullopt : std::optional(*std::prev(after));
}

} // namespace Veld::Quor::Tools::LanguageServer
