#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/syntax/SyntaxDifference.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>

namespace Veld::Quor::Tools {

namespace {

struct SyntaxOptions {
    std::string action;
    std::string documents[2];
    bool isAddition = false;
    bool isJson = false;
};

void PrintText(const SyntaxChanges& changes, std::size_t breaking)
{
    std::string keyword;
    for (const SyntaxChange& change : changes) {
        if (change.keyword != keyword)
            Print(MakePrintable(change.keyword) + '\n');
        keyword = change.keyword;
        Print(fmt::format("  {} {}{}{}\n", change.breaks ? '!' : '~', MakePrintable(change.item),
            change.item.empty() ? "" : ": ", MakePrintable(change.text)));
    }
    const std::string breaks = breaking == 1 ? "1 breaks" : fmt::format("{} break", breaking);
    Print(changes.empty() ? std::string("no changes\n")
                          : fmt::format("{}: {} decks\n", Plural(changes.size(), "change"), breaks));
}

void PrintJson(const SyntaxChanges& changes, const SyntaxOptions& options, std::size_t breaking)
{
    auto list = nlohmann::ordered_json::array();
    for (const SyntaxChange& change : changes)
        list.push_back({{"keyword", change.keyword}, {"item", TextOrNull(change.item)},
            {"change", change.text}, {"breaks", change.breaks}});
    Print(ToText(WithVersion({{"a", options.documents[0]}, {"b", options.documents[1]},
        {"breaking", breaking}, {"changes", list}})));
}

int CompareDocuments(const SyntaxOptions& options)
{
    LoadedLanguage language;
    const SyntaxSnapshot a = TakeSnapshot(language, options.documents[0]);
    const SyntaxSnapshot b = TakeSnapshot(language, options.documents[1]);
    const SyntaxChanges changes = Compare(a, b, options.isAddition);
    const auto breaking = static_cast<std::size_t>(std::count_if(
        changes.begin(), changes.end(), [](const SyntaxChange& change) { return change.breaks; }));
    if (options.isJson)
        PrintJson(changes, options, breaking);
    else
        PrintText(changes, breaking);
    return breaking == 0 ? Success : HasFindings;
}

} // namespace

Command MakeSyntaxCommand(CLI::App& application)
{
    const auto options = std::make_shared<SyntaxOptions>();
    CLI::App& command = *application.add_subcommand("syntax",
        "Compares two documents of keywords: 'quor syntax diff A B' prints what changes from A to B, and\n"
        "which changes break decks.");
    command.add_option("ACTION", options->action, "What to do: diff")
        ->required()
        ->transform(CLI::IsMember({"diff"}, CLI::ignore_case));
    for (int i = 0; i < 2; ++i)
        command
            .add_option(i == 0 ? "A" : "B", options->documents[i],
                "A document, a folder of documents, or 'builtin': the built-in language")
            ->required()
            ->type_name("PATH");
    command.add_flag("--addition", options->isAddition,
        "B is added to A, as --syntax does: keywords that it doesn't have remain");
    AddFormatOption(command, options->isJson);
    command.footer(
        "A line is one change: ! breaks decks that were right, or changes what they mean, ~ does not.\n"
        "Keywords, items, choices and aliases that are removed break decks, and so do other types, units "
        "and\n"
        "defaults, narrower limits and validity, and a new item before others or without a default. A new\n"
        "name of an item breaks no deck, but addresses of its values.\n"
        "Exit status: 0 nothing breaks decks, 1 something does, 2 a document can't be read.\n\n"
        "Examples:\n"
        "  quor syntax diff released.xml new.xml\n"
        "  quor syntax diff builtin company.xml --addition --format json");
    Command made{&command, {}};
    made.runAlone = [options] { return CompareDocuments(*options); };
    return made;
}

} // namespace Veld::Quor::Tools
