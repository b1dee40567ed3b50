#include "quor/deck/DeckFormatter.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;

namespace {

struct FormatOptions {
    std::string deck;
    Decks::ReadOptions read;
    bool isOneFile = false;
    bool isInPlace = false;
    bool isCheck = false;
    std::string folder; // empty: none
};

/// A file of the deck, once even if it is included several times.
struct Formatted {
    std::string path;
    std::string_view before;
    std::string after;
};

/// Two inclusions of one file can't be told apart in it: where they want different texts, it stays as it is.
void Add(std::vector<Formatted>& files, Formatted file)
{
    for (Formatted& known : files) {
        if (known.before.data() != file.before.data())
            continue;
        if (known.after != file.after)
            known.after = known.before;
        return;
    }
    files.push_back(std::move(file));
}

std::vector<Formatted> FormatFiles(const Decks::Deck& deck, const FormatOptions& options)
{
    Decks::DeckFormatter formatter(deck);
    const Decks::DeckFiles& sources = deck.GetFiles();
    std::vector<Formatted> files;
    if (options.isOneFile)
        return {{sources.Get(0).name, sources.GetText(0), formatter.FormatAll()}};
    for (std::uint32_t i = 0; i < sources.GetSize(); ++i)
        Add(files, {sources.Get(i).name, sources.GetText(i), formatter.FormatFile(i)});
    return files;
}

/// Lists what would change.
int CheckFiles(const std::vector<Formatted>& files)
{
    std::size_t changed = 0;
    for (const Formatted& file : files) {
        if (file.after == file.before)
            continue;
        ++changed;
        Print(fmt::format("{}\n", MakePrintable(file.path)));
    }
    PrintAside(fmt::format("{} of {} would change\n", changed, Plural(files.size(), "file")));
    return changed == 0 ? Success : HasFindings;
}

/// False, and reported, if something can't be written.
bool WriteFiles(const std::vector<Formatted>& files)
{
    std::size_t written = 0;
    const auto fail = [&](const Formatted& file, const std::string& why) {
        PrintError(fmt::format("can't write '{}': {}", file.path, why));
        if (written > 0)
            PrintAside(fmt::format(
                "{} of {} were written before the error\n", written, Plural(files.size(), "file")));
        return false;
    };
    for (const Formatted& file : files) {
        try {
            if (const fs::path folder = fs::path(file.path).parent_path(); !folder.empty())
                fs::create_directories(folder);
            WriteFile(file.path, file.after);
        } catch (const fs::filesystem_error& error) {
            return fail(file, error.code().message());
        } catch (const OutputError& error) {
            return fail(file, error.what());
        }
        ++written;
    }
    return true;
}

int RewriteFiles(std::vector<Formatted> files)
{
    const std::size_t all = files.size();
    std::erase_if(files, [](const Formatted& file) { return file.after == file.before; });
    if (!WriteFiles(files))
        return Failure;
    PrintAside(fmt::format("{} of {} changed\n", files.size(), Plural(all, "file")));
    return Success;
}

/// The same tree below another folder.
int WriteTree(std::vector<Formatted> files, const FormatOptions& options)
{
    const fs::path root = fs::path(options.deck).parent_path();
    for (Formatted& file : files) {
        const fs::path relative = fs::path(file.path).lexically_relative(root.empty() ? "." : root);
        const fs::path inner = root.empty() ? fs::path(file.path).lexically_normal() : relative;
        if (inner.empty() || inner.is_absolute() || *inner.begin() == "..") {
            PrintError(fmt::format("'{}' is outside the folder of the deck", file.path));
            PrintAside("use --one-file to write the deck and its included files into one file\n");
            return Failure;
        }
        file.path = (fs::path(options.folder) / inner).string();
    }
    if (!WriteFiles(files))
        return Failure;
    PrintAside(
        fmt::format("{} written to '{}'\n", Plural(files.size(), "file"), MakePrintable(options.folder)));
    return Success;
}

int PrintFirst(const std::vector<Formatted>& files)
{
    Print(files.front().after);
    if (files.size() > 1)
        PrintAside(fmt::format("{} not printed: use --one-file to print included files, or --in-place or "
                               "--output to write them\n",
            Plural(files.size() - 1, "file")));
    return Success;
}

int Format(LoadedLanguage& language, const FormatOptions& options)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const auto deck =
        ReadDeckOrReport(options.deck, options.read, deckLanguage, "keywords with errors are not changed");
    if (!deck)
        return Failure;
    std::vector<Formatted> files = FormatFiles(*deck, options);
    if (options.isCheck)
        return CheckFiles(files);
    if (options.isInPlace)
        return RewriteFiles(std::move(files));
    if (!options.folder.empty())
        return WriteTree(std::move(files), options);
    return PrintFirst(files);
}

} // namespace

Command MakeFormatCommand(CLI::App& application)
{
    const auto options = std::make_shared<FormatOptions>();
    CLI::App& command = *application.add_subcommand("format",
        "Formats a deck: aligns columns, combines repeated values, shortens numbers and omits defaulted\n"
        "values. Comments are kept. The formatted deck has the same data.");
    command.add_option("DECK", options->deck, "Main file of the deck")->required()->type_name("FILE");
    AddReadOptions(command, options->read);
    CLI::Option* const oneFile = command.add_flag(
        "--one-file", options->isOneFile, "Replace each inclusion by the content of the included file");
    CLI::Option* const inPlace =
        command.add_flag("--in-place", options->isInPlace, "Overwrite the deck and its included files");
    CLI::Option* const folder = command.add_option(
        "--output", options->folder, "Write the deck and its included files to this folder");
    folder->type_name("FOLDER");
    CLI::Option* const check = command.add_flag("--check", options->isCheck,
        "Write nothing; list the files that would change, and exit with 1 if there are any");
    inPlace->excludes(folder)->excludes(check);
    folder->excludes(check);
    oneFile->excludes(inPlace)->excludes(check);
    command.footer(
        "Keywords with errors, raw texts, and data that go on in another file or around a skipped "
        "block stay as\n"
        "they are. Without --in-place, --output or --check the text goes to standard output.\n"
        "Exit status: 0 success, 1 with --check if a file would change, 2 a file can't be read or\n"
        "written.\n\n"
        "Examples:\n"
        "  quor format reservoir.data > tidy.data\n"
        "  quor format reservoir.data --in-place\n"
        "  quor format reservoir.data --one-file --output flat");
    return {&command, [options](LoadedLanguage& language) { return Format(language, *options); }};
}

} // namespace Veld::Quor::Tools
