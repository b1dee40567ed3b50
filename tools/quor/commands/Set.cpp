#include "quor/deck/Deck.h"
#include "quor/deck/DeckEditor.h"
#include "quor/deck/DeckFiles.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/commands/UnifiedDiff.h"
#include "tools/quor/commands/ValueWords.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/findings/Baseline.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

struct SetOptions {
    std::string deck;
    std::vector<std::string> words; // addresses and values by turns
    DeckReadOptions read;
    bool isDiff = false; // print what would change
    bool mayBeOutside = false; // what changes
    bool isForced = false; // also if the changed deck has new errors
};

/// The deck, and what is known to be wrong with it.
struct KnownDeck {
    Decks::Deck deck;
    Baseline known;
};

std::optional<KnownDeck> ReadToEdit(const SetOptions& options, const Decks::DeckLanguage& language)
{
    const std::string name = NameOfDeck(options.deck, options.read.read);
    Baseline::Counts counts;
    auto deck = ReadDeck(options.deck,
        OptionsFor(options.deck, options.read)
            .SetEditable(true)
            .SetKnownFinding(Baseline::MakeRecorder(name, counts)),
        language);
    if (!deck)
        return std::nullopt;
    Baseline known;
    known.Add(counts);
    return KnownDeck{std::move(*deck), std::move(known)};
}

/// A value that isn't there may be in a file that can't be read.
void PrintKnown(const SetOptions& options, const KnownDeck& before)
{
    const std::size_t known = before.deck.GetFindings().GetHiddenCount(Decks::Hiding::Known);
    if (known > 0)
        PrintAside(fmt::format("quor: {} has {}; run '{}' to list them\n", MakePrintable(options.deck),
            Plural(known, "finding"), CheckCommand(options.deck, before.deck.GetOptions())));
}

/// Sets one value, once. A line of what changes. `done`: the addresses so far.
std::string SetOne(const Decks::Deck& deck, const std::string& address, const std::string& word,
    Decks::DeckEditor& editor, std::set<std::string>& done)
{
    const Decks::DeckValue value = Decks::ResolveOne(deck, Decks::ValueAddress::Parse(address));
    if (!done.insert(value.address.ToString()).second)
        throw std::invalid_argument(fmt::format("{} is set twice", value.address.ToString()));
    if (const std::optional<Decks::NewValue> changed = NewValueOf(value, word))
        editor.SetValue(value, *changed);
    else
        editor.ClearValue(value);
    return fmt::format("{}: {}: {} -> {}\n", LocationText(LocationOf(deck, value)),
        MakePrintable(value.address.ToString()), MakePrintable(WordOf(deck, value)), MakePrintable(word));
}

/// False, and reported, if one of the values can't be set. `report` gets the lines.
bool SetAll(
    const Decks::Deck& deck, const SetOptions& options, Decks::DeckEditor& editor, std::string& report)
{
    std::set<std::string> done;
    try {
        for (std::size_t i = 0; i + 1 < options.words.size(); i += 2)
            report += SetOne(deck, options.words[i], options.words[i + 1], editor, done);
        return true;
    } catch (const Core::Service::Exception& error) { // of the address, the value or the edit
        PrintError(error.what());
    } catch (const std::invalid_argument& error) {
        PrintError(error.what());
    }
    return false;
}

/// Whether the changed deck has no errors that the deck doesn't have; prints its new findings.
bool IsSound(const SetOptions& options, const KnownDeck& before, const Decks::DeckEditor& editor,
    const Decks::DeckLanguage& language)
{
    const std::string name = NameOfDeck(options.deck, options.read.read);
    const Decks::Deck after = editor.Read(language,
        Decks::ReadOptions(before.deck.GetOptions()).SetKnownFinding(before.known.MakeFilter(name)));
    const std::string findings = FindingsText(after.GetFindings());
    PrintAside(findings);
    PrintHiddenText(after.GetFindings(), after);
    if (after.GetFindings().GetCount(Decks::Severity::Error) == 0 || options.isForced)
        return true;
    PrintError(options.isDiff
            ? "the changed deck has new errors"
            : "the changed deck has new errors; nothing was written; --force writes it nevertheless");
    return false;
}

/// False, and reported, if a file can't be written.
bool WriteChanged(const Decks::Deck& deck, const Decks::DeckEditor& editor, bool mayBeOutside)
{
    std::vector<std::string> texts;
    for (const std::uint32_t file : editor.GetChangedFiles())
        texts.push_back(editor.GetText(file));
    std::vector<FileChange> changes;
    for (const std::uint32_t file : editor.GetChangedFiles())
        changes.push_back({file, texts[changes.size()]});
    return ChangeFilesOrReport(deck, changes, mayBeOutside);
}

void PrintDiff(const Decks::Deck& deck, const Decks::DeckEditor& editor)
{
    const std::vector<Decks::TextEdit> edits = editor.GetEdits();
    for (const std::uint32_t file : editor.GetChangedFiles()) {
        std::vector<Decks::TextEdit> inFile;
        std::copy_if(edits.begin(), edits.end(), std::back_inserter(inFile),
            [file](const Decks::TextEdit& edit) { return edit.range.file == file; });
        Print(UnifiedDiff(deck.GetFiles().Get(file).name, deck.GetFiles().GetText(file), inFile));
    }
}

/// The deck itself to standard output, if no other file changes.
int PrintDeck(const Decks::Deck& deck, const Decks::DeckEditor& editor)
{
    for (const std::uint32_t file : editor.GetChangedFiles()) {
        if (file == 0)
            continue;
        PrintError(fmt::format("the change is in '{}', which is not on standard input; nothing was written",
            deck.GetFiles().Get(file).name));
        return Failure;
    }
    Print(editor.GetText(0));
    return Success;
}

int SetValues(LoadedLanguage& language, const SetOptions& options)
{
    if (options.words.size() % 2 != 0) {
        PrintError(fmt::format("'{}' has no value; expected an address and a value by turns",
            MakePrintable(options.words.back())));
        return Failure;
    }
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const std::optional<KnownDeck> before = ReadToEdit(options, deckLanguage);
    if (!before)
        return Failure;
    Decks::DeckEditor editor(before->deck);
    std::string report;
    if (!SetAll(before->deck, options, editor, report)) {
        PrintKnown(options, *before);
        return Failure;
    }
    if (options.isDiff)
        PrintDiff(before->deck, editor);
    const bool isSound = IsSound(options, *before, editor, deckLanguage);
    if (options.isDiff || !isSound)
        return isSound ? Success : Failure;
    if (options.deck == standardInputPath)
        return PrintDeck(before->deck, editor);
    if (!WriteChanged(before->deck, editor, options.mayBeOutside))
        return Failure;
    Print(report);
    return Success;
}

constexpr const char* setDetails =
    "An address names one value: KEYWORD[RECORD].ITEM@DATE; 'quor get' shows the addresses of a deck. A\n"
    "record is named by its well, group or number, a value of an array by its number: 'PORO[17]'. No other\n"
    "byte of the deck changes. All values are set, or none. The changed deck is checked before it is "
    "written:\n"
    "with errors that it didn't have before, nothing is written. A deck from standard input ('-') goes to\n"
    "standard output.\n"
    "Exit status: 0 success, 2 a value can't be set, or a file can't be read or written.\n\n"
    "Examples:\n"
    "  quor set field.data 'WCONPROD[P1].ORAT@2024-04-01' 900\n"
    "  quor set field.data 'EQUIL[1].OWC' 2410 'EQUIL[1].GOC' '1*' --diff";

} // namespace

Command MakeSetCommand(CLI::App& application)
{
    const auto options = std::make_shared<SetOptions>();
    CLI::App& command = *application.add_subcommand(
        "set", "Sets values of a deck by their addresses. Nothing else in its files changes.");
    AddDeckArgument(command, options->deck);
    command
        .add_option("CHANGES", options->words, "Addresses and their new values; 1* leaves one to its default")
        ->required()
        ->type_name("ADDRESS VALUE");
    AddReadOptions(command, options->read);
    AddShowOutsideOption(command, options->read.read);
    command.remove_option(command.get_option("--deck-folder")); // the deck is written where it is
    command.add_flag("--diff", options->isDiff, "Write nothing; print the change as a unified diff");
    AddOutsideOption(command, options->mayBeOutside);
    command.add_flag("--force", options->isForced, "Write also if the changed deck has new errors");
    command.footer(setDetails);
    return {&command, [options](LoadedLanguage& language) { return SetValues(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
