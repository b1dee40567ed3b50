#pragma once

#include "quor/deck/Deck.h"
#include "quor/foundation/UnitSystem.h"
#include "tools/quor/language-server/Documents.h"
#include "tools/quor/language-server/NameIndex.h"
#include "tools/quor/language-server/Projects.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// Which version of its text each open document had, by key.
using TextVersions = std::map<std::string, TextVersion>;

/// A deck as it was read at some time, with what requests look up in it.
class DeckState {
public:
    DeckState(Core::Decks::Deck deck, std::string root, TextVersions versions, Project project);

    const Core::Decks::Deck& GetDeck() const { return deck_; }
    const Project& GetProject() const { return project_; }
    /// What the rules with which it was read say of names.
    NameRules& GetNameRules() const { return project_.language->names; }
    const NameIndex& GetNames() const { return names_; }
    Core::Keywords::UnitSystem::Enum GetUnits() const { return units_; }
    /// The path of the deck itself.
    const std::string& GetRoot() const { return root_; }
    const TextVersions& GetVersions() const { return versions_; }
    /// Whether it is a file that no deck is known to include: no deck by itself.
    bool IsFragment() const { return isFragment_; }
    void MarkAsFragment() { isFragment_ = true; }

    /// "include/wells.inc:12": from the folder of the deck if the file is below it.
    std::string LineText(const Core::Decks::TextRange& range) const;
    /// The first inclusion of a file; empty if the deck doesn't have it.
    std::optional<std::uint32_t> FindFile(const std::string& key) const;
    /// What tells the file from others: see `KeyOfPath`.
    const std::string& KeyOf(std::uint32_t file) const { return keys_.at(file); }
    /// The keywords whose names are in the file, in their order there.
    const std::vector<std::uint32_t>& GetKeywordsIn(std::uint32_t file) const { return byFile_.at(file); }
    /// The last keyword that begins at or before a byte of the file; empty if there is none.
    std::optional<std::uint32_t> FindKeywordBefore(std::uint32_t file, std::size_t offset) const;

private:
    Project project_; // first: the deck needs its language
    Core::Decks::Deck deck_;
    std::string root_;
    TextVersions versions_;
    bool isFragment_ = false;
    NameIndex names_;
    Core::Keywords::UnitSystem::Enum units_;
    std::vector<std::string> keys_;
    std::map<std::string, std::uint32_t> files_;
    std::vector<std::vector<std::uint32_t>> byFile_;
};

using StatePointer = std::shared_ptr<const DeckState>;

} // namespace Veld::Quor::Tools::LanguageServer
