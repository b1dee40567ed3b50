#include "tools/quor/commands/WriteFiles.h"

#include "tools/quor/commands/StampedFiles.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <set>
#include <system_error>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;

namespace {

void WriteOne(const FileText& file, const std::set<FileStamp>* known, Sync sync)
{
    const bool hasHardLinks = HasHardLinks(file.path);
    if (const fs::path folder = fs::path(file.path).parent_path(); !folder.empty())
        fs::create_directories(folder);
    WriteFile(file.path, file.text, known, sync);
    if (hasHardLinks)
        PrintAside(fmt::format(
            "quor: '{}' had other names (hard links); they keep the old text\n", MakePrintable(file.path)));
}

bool WriteAll(const std::vector<FileText>& files, const std::set<FileStamp>* known, Sync sync = Sync::AtOnce)
{
    std::size_t written = 0;
    const auto fail = [&](const FileText& file, const std::string& why) {
        PrintError(fmt::format("can't write '{}': {}", file.path, why));
        if (written > 0)
            PrintAside(fmt::format(
                "{} of {} were written before the error\n", written, Plural(files.size(), "file")));
        return false;
    };
    for (const FileText& file : files) {
        try {
            WriteOne(file, known, sync);
        } catch (const fs::filesystem_error& error) {
            return fail(file, error.code().message());
        } catch (const OutputError& error) {
            return fail(file, error.what());
        }
        ++written;
    }
    return true;
}

/// False, and reported, if there are any.
bool HasNoneOutside(const Decks::DeckFiles& files, const std::vector<FileChange>& changes)
{
    std::string outside;
    for (const FileChange& change : changes) {
        if (files.Get(change.file).isOutside)
            outside += fmt::format("  {}\n", MakePrintable(files.Get(change.file).name));
    }
    if (outside.empty())
        return true;
    PrintError(
        "files outside the folder of the deck would change; nothing was written; use --outside to change "
        "them too:");
    PrintAside(outside);
    return false;
}

} // namespace

bool WriteFilesOrReport(const std::vector<FileText>& files, Sync sync)
{
    return WriteAll(files, nullptr, sync);
}

bool IsApartOrReport(const std::string& path, const Decks::Deck& deck)
{
    const Decks::DeckFiles& files = deck.GetFiles();
    for (std::uint32_t i = 0; i < files.GetSize(); ++i) {
        std::error_code error;
        if (!fs::equivalent(path, files.Get(i).name, error))
            continue;
        PrintError(fmt::format("can't write '{}': it is a file of the deck", path));
        return false;
    }
    return true;
}

std::string HeadOf(const std::string& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return {};
    std::string head(400, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(file.gcount()));
    return head;
}

bool IsPageOf(const std::string& command, const std::string& path)
{
    const std::string mark = fmt::format("<meta name=\"generator\" content=\"quor {}\">", command);
    return HeadOf(path).find(mark) != std::string::npos;
}

void AddOutsideOption(CLI::App& command, bool& mayBeOutside)
{
    command.add_flag(
        "--outside", mayBeOutside, "Also change included files that are outside the folder of the deck");
}

bool ReplaceFilesOrReport(const std::vector<FileText>& files, const std::set<FileStamp>& known)
{
    for (const FileText& file : files) {
        if (known.count(StampOf(file.path)) > 0)
            continue;
        PrintError(fmt::format(
            "can't write '{}': it was changed since it was read; nothing was written", file.path));
        return false;
    }
    return WriteAll(files, &known);
}

bool ChangeFilesOrReport(const Decks::Deck& deck, const std::vector<FileChange>& changes, bool mayBeOutside)
{
    const Decks::DeckFiles& files = deck.GetFiles();
    if (!mayBeOutside && !HasNoneOutside(files, changes))
        return false;
    const auto& source = dynamic_cast<const StampedFiles&>(*deck.GetOptions().GetSource());
    std::vector<FileText> texts;
    for (const FileChange& change : changes)
        texts.push_back({files.Get(change.file).name, change.text});
    return ReplaceFilesOrReport(texts, source.GetStamps());
}

} // namespace Veld::Quor::Tools
