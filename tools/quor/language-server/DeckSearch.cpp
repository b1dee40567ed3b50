#include "tools/quor/language-server/DeckSearch.h"

#include "quor/deck/DeckSource.h"
#include "quor/foundation/service/Directory.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace fs = std::filesystem;
using Core::Service::Directory;

namespace {

constexpr std::size_t mostDecks = 100;
constexpr std::size_t mostEntries = 20'000; // of folders that are looked through
constexpr int mostLevels = 5; // above the file

/// Collects decks, each once.
class DeckCollector {
public:
    explicit DeckCollector(const fs::path& target)
        : target_(target)
    {
    }

    void AddFolder(const fs::path& folder);
    void AddLikelyFirst(const std::vector<fs::path>& decks);
    void AddBelow(const fs::path& folder);
    std::vector<std::string> Take() { return std::move(decks_); }

private:
    static constexpr int others = 2;
    int RankOf(const fs::path& deck) const;
    void Add(const fs::path& deck);

    fs::path target_;
    std::vector<std::string> decks_;
};

/// The less, the likelier: the deck has the name of the file, or the folder on the way to it, or neither.
int DeckCollector::RankOf(const fs::path& deck) const
{
    try {
        const auto source = Core::Decks::SourceText::FromFile(deck.string());
        const std::string_view text = source->GetText();
        if (text.find(target_.filename().string()) != std::string_view::npos)
            return 0;
        const std::string way = target_.parent_path().lexically_relative(deck.parent_path()).string();
        return way != "." && text.find(way) != std::string_view::npos ? 1 : others;
    } catch (const Core::Decks::SourceError&) {
        return others;
    }
}

void DeckCollector::Add(const fs::path& deck)
{
    const std::string path = deck.string();
    if (decks_.size() < mostDecks && deck != target_
        && std::find(decks_.begin(), decks_.end(), path) == decks_.end())
        decks_.push_back(path);
}

void DeckCollector::AddFolder(const fs::path& folder)
{
    std::vector<fs::path> decks;
    for (const std::string& name : Directory(folder.string()).GetNames()) {
        std::error_code error;
        if (IsDeckName(name) && fs::is_regular_file(folder / name, error))
            decks.push_back(folder / name);
    }
    AddLikelyFirst(decks);
}

void DeckCollector::AddLikelyFirst(const std::vector<fs::path>& decks)
{
    std::vector<int> ranks;
    for (const fs::path& deck : decks)
        ranks.push_back(RankOf(deck));
    for (int rank = 0; rank <= others; ++rank) {
        for (std::size_t i = 0; i < decks.size(); ++i) {
            if (ranks[i] == rank)
                Add(decks[i]);
        }
    }
}

/// Not through links, which may lead back.
void DeckCollector::AddBelow(const fs::path& folder)
{
    std::size_t left = mostEntries;
    std::vector<fs::path> decks;
    std::deque<fs::path> folders = {folder}; // the upper ones first
    for (; !folders.empty() && left > 0; folders.pop_front()) {
        const std::vector<std::string> names = Directory(folders.front().string()).GetNames(left);
        left -= names.size();
        for (const std::string& name : names) {
            fs::path entry = folders.front() / name;
            std::error_code error;
            if (IsDeckName(name))
                decks.push_back(std::move(entry));
            else if (fs::is_directory(fs::symlink_status(entry, error)))
                folders.push_back(std::move(entry));
        }
    }
    std::sort(decks.begin(), decks.end());
    AddLikelyFirst(decks);
}

} // namespace

bool IsDeckName(const std::string& path)
{
    return ToLower(fs::path(path).extension().string()) == ".data";
}

std::vector<std::string> FindDecksFor(
    const std::string& path, const std::vector<std::string>& known, const std::vector<std::string>& folders)
{
    const fs::path target(path);
    DeckCollector decks(target);
    decks.AddLikelyFirst({known.begin(), known.end()});
    fs::path folder = target.parent_path();
    for (int level = 0; level < mostLevels && !folder.empty(); ++level, folder = folder.parent_path()) {
        decks.AddFolder(folder);
        if (folder == folder.parent_path()
            || std::find(folders.begin(), folders.end(), folder.string()) != folders.end())
            break;
    }
    for (const std::string& top : folders)
        decks.AddBelow(top);
    return decks.Take();
}

} // namespace Veld::Quor::Tools::LanguageServer
