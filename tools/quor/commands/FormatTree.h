#pragma once

#include "quor/deck/DeckFiles.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// Why a deck can't be written to another folder.
class TreeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where the files of a deck go if it is written to another folder: as they are below their common ancestor,
/// so that each is found from the deck by its relative name.
class FormatTree {
public:
    /// `indices`: the files to be written, the deck first. Throws `TreeError` if the deck there would not be
    /// made of them alone, or if a file outside of the folder, or of the deck itself, would be overwritten.
    FormatTree(const Core::Decks::DeckFiles& files, const std::vector<std::uint32_t>& indices,
        const std::string& folder);

    /// In the order of the files.
    const std::vector<std::string>& GetTargets() const { return targets_; }

private:
    std::vector<std::string> targets_;
};

} // namespace Veld::Quor::Tools
