#include "quor/deck/DeckFormatter.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/FormatTree.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

struct FormatOptions {
    std::string deck;
    DeckReadOptions read;
    bool isOneFile = false;
    bool isInPlace = false;
    bool mayBeOutside = false; // what is changed in place
    bool isCheck = false;
    std::string folder; // empty: none
};

/// A file of the deck, once even if it is included several times.
struct Formatted {
    std::string path;
    std::string_view before;
    std::string after;
    std::vector<std::uint32_t> indices = {}; // among the files of the deck, one for each inclusion
};

/// Two inclusions of one file can't be told apart in it: where they want different texts, it stays as it is.
void Add(std::vector<Formatted>& files, Formatted file)
{
    const auto known = std::find_if(files.begin(), files.end(),
        [&file](const Formatted& other) { return other.before.data() == file.before.data(); });
    if (known == files.end()) {
        files.push_back(std::move(file));
        return;
    }
    if (known->after != file.after)
        known->after = known->before;
    known->indices.push_back(file.indices.front());
}

std::vector<Formatted> FormatFiles(const Decks::Deck& deck, const FormatOptions& options)
{
    const Settings settings = SettingsOf(NameOfDeck(options.deck, options.read.read), options.read.settings);
    Decks::DeckFormatter formatter(
        deck, Decks::FormatOptions().SetNormalized(settings.isNormalized.value_or(false)));
    const Decks::DeckFiles& sources = deck.GetFiles();
    std::vector<Formatted> files;
    if (options.isOneFile)
        return {{sources.Get(0).name, sources.GetText(0), formatter.FormatAll(), {0}}};
    for (std::uint32_t i = 0; i < sources.GetSize(); ++i)
        Add(files, {sources.Get(i).name, sources.GetText(i), formatter.FormatFile(i), {i}});
    return files;
}

/// False, and reported, if a file was cut short after the deck was read.
bool IsIntact(const Decks::Deck& deck)
{
    const Decks::DeckFiles& files = deck.GetFiles();
    for (std::uint32_t i = 0; i < files.GetSize(); ++i) {
        if (files.Get(i).text->IsIntact())
            continue;
        PrintError(fmt::format("can't format '{}': it was cut short meanwhile", files.Get(i).name));
        return false;
    }
    return true;
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

bool WriteFiles(const std::vector<Formatted>& files)
{
    std::vector<FileText> texts;
    for (const Formatted& file : files)
        texts.push_back({file.path, file.after});
    return WriteFilesOrReport(texts);
}

int RewriteFiles(const Decks::Deck& deck, const std::vector<Formatted>& files, bool mayBeOutside)
{
    std::vector<FileChange> changes;
    for (const Formatted& file : files) {
        if (file.after != file.before)
            changes.push_back({file.indices.front(), file.after});
    }
    if (!ChangeFilesOrReport(deck, changes, mayBeOutside))
        return Failure;
    PrintAside(fmt::format("{} of {} changed\n", changes.size(), Plural(files.size(), "file")));
    return Success;
}

/// The same tree below another folder. A file may have several names in it.
int WriteTree(
    const Decks::DeckFiles& sources, const std::vector<Formatted>& files, const FormatOptions& options)
{
    std::vector<std::uint32_t> indices;
    for (const Formatted& file : files)
        indices.insert(indices.end(), file.indices.begin(), file.indices.end());
    std::vector<Formatted> copies;
    try {
        const FormatTree tree(sources, indices, options.folder);
        auto target = tree.GetTargets().begin();
        std::set<std::string> paths;
        for (const Formatted& file : files) {
            for (std::size_t i = 0; i < file.indices.size(); ++i, ++target) {
                if (paths.insert(*target).second)
                    copies.push_back({*target, file.before, file.after});
            }
        }
    } catch (const TreeError& error) {
        PrintError(error.what());
        PrintAside("nothing was written; --one-file writes the deck and its included files into one file\n");
        return Failure;
    }
    if (!WriteFiles(copies))
        return Failure;
    PrintAside(fmt::format("{} written to '{}'; the deck is '{}'\n", Plural(copies.size(), "file"),
        MakePrintable(options.folder), MakePrintable(copies.front().path)));
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
    if (options.deck == standardInputPath && (options.isInPlace || !options.folder.empty())) {
        PrintError("the deck from standard input can only be printed; leave out --in-place and --output");
        return Failure;
    }
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const auto deck = ReadDeckOrReport(options.deck, OptionsFor(options.deck, options.read), deckLanguage,
        "keywords with errors are not changed");
    if (!deck)
        return Failure;
    const std::vector<Formatted> files = FormatFiles(*deck, options);
    if (!IsIntact(*deck))
        return Failure;
    if (options.isCheck)
        return CheckFiles(files);
    if (options.isInPlace)
        return RewriteFiles(*deck, files, options.mayBeOutside);
    if (!options.folder.empty())
        return WriteTree(deck->GetFiles(), files, options);
    return PrintFirst(files);
}

constexpr const char* details =
    "With --output the files are below FOLDER as they are below the folder that all of them are in: a deck\n"
    "cases/a.data that includes ../grid.inc becomes FOLDER/cases/a.data, with FOLDER/grid.inc. A deck with\n"
    "inclusions by absolute paths is refused, and nothing is written. Files that are not read, such as "
    "those\n"
    "in skipped blocks, are not written.\n"
    "Keywords with errors, raw texts, and data that continue in another file or around a skipped block stay "
    "as\n"
    "they are. Without --in-place, --output or --check the text goes to standard output.\n"
    "With --in-place a file that another program changes meanwhile is not overwritten. Mode, owner, group "
    "and "
    "symbolic\n"
    "links stay as they are; another name of the file (hard link) keeps the old text, which is reported.\n"
    "Exit status: 0 success, 1 with --check if a file would change, 2 a file can't be read or written.\n\n"
    "Examples:\n"
    "  quor format reservoir.data > tidy.data\n"
    "  quor format reservoir.data --in-place\n"
    "  quor format reservoir.data --one-file --output flat";

} // namespace

Command MakeFormatCommand(CLI::App& application)
{
    const auto options = std::make_shared<FormatOptions>();
    CLI::App& command = *application.add_subcommand("format",
        "Formats a deck: aligns rows whose columns are not below one another, and removes blanks within\n"
        "quotes and defaults after the last item. Lines, columns, comments, numbers and repeats are kept.\n"
        "The formatted deck has the same data.");
    AddDeckArgument(command, options->deck);
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
    AddSettingOptions(command, options->read.settings.given, {"format.normalize"});
    AddOutsideOption(command, options->mayBeOutside);
    inPlace->excludes(folder)->excludes(check);
    folder->excludes(check);
    oneFile->excludes(inPlace)->excludes(check);
    CLI::Option* const deckFolder = command.get_option("--deck-folder");
    deckFolder->excludes(inPlace)->excludes(folder);
    command.footer(details);
    return {&command, [options](LoadedLanguage& language) { return Format(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
