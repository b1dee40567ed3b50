#pragma once

#include "quor/deck/Deck.h"
#include "tools/quor/terminal/FileOutput.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

struct FileText {
    std::string path;
    std::string_view text;
};

/// Writes files, each whole or not at all, and the folders that they need. False, and reported with how many
/// were written before it, if one of them can't be written.
bool WriteFilesOrReport(const std::vector<FileText>& files, Sync sync = Sync::AtOnce);
/// The same for files that were read: if one has none of the stamps, it was changed since then, and none is
/// written.
bool ReplaceFilesOrReport(const std::vector<FileText>& files, const std::set<FileStamp>& known);

/// False, and reported, if the path of a result is that of a file of the deck.
bool IsApartOrReport(const std::string& path, const Core::Decks::Deck& deck);

/// The first bytes of a file; empty if it is no regular file, or can't be read.
std::string HeadOf(const std::string& path);
/// Whether the file is a page that the command of this program wrote. False for a file that isn't there.
bool IsPageOf(const std::string& command, const std::string& path);

/// A file of a deck, and what is to be in it.
struct FileChange {
    std::uint32_t file;
    std::string_view text;
};

void AddOutsideOption(CLI::App& command, bool& mayBeOutside);

/// The same for files of a deck that `ReadDeck` has read: one that was changed since then is refused, and
/// before any is written, those outside the folder of the deck unless they are allowed.
bool ChangeFilesOrReport(
    const Core::Decks::Deck& deck, const std::vector<FileChange>& changes, bool mayBeOutside);

} // namespace Veld::Quor::Tools
