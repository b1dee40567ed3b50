#include "quor/deck/DeckSource.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/dump/DeckBuilder.h"
#include "tools/quor/dump/DeckJson.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

struct DumpOptions {
    std::string deck;
    DeckReadOptions read;
    bool isLoad = false;
};

/// Hands what the parser meets to a builder of decks.
class DumpReader : public nlohmann::json_sax<nlohmann::json> {
public:
    explicit DumpReader(DeckBuilder& builder)
        : builder_(builder)
    {
    }

    bool null() override { return Take({}); }
    bool boolean(bool value) override { return Take(value); }
    bool number_integer(std::int64_t value) override { return Take(value); }
    bool number_unsigned(std::uint64_t value) override
    {
        return std::in_range<std::int64_t>(value) ? Take(static_cast<std::int64_t>(value))
                                                  : Take(static_cast<double>(value));
    }
    bool number_float(double value, const std::string& /*text*/) override { return Take(value); }
    bool string(std::string& value) override { return Take(value); }
    bool binary(binary_t& /*value*/) override { return false; } // JSON has none
    bool start_object(std::size_t /*size*/) override
    {
        return Do([this] { builder_.StartObject(); });
    }
    bool key(std::string& name) override
    {
        return Do([this, &name] { builder_.Key(name); });
    }
    bool end_object() override
    {
        return Do([this] { builder_.End(); });
    }
    bool start_array(std::size_t /*size*/) override
    {
        return Do([this] { builder_.StartArray(); });
    }
    bool end_array() override
    {
        return Do([this] { builder_.End(); });
    }
    bool parse_error(
        std::size_t /*byte*/, const std::string& /*token*/, const nlohmann::json::exception& error) override
    {
        const std::string text = error.what();
        const std::size_t at = text.find("line ");
        error_ = "invalid JSON at " + text.substr(at == std::string::npos ? 0 : at);
        return false;
    }

    const std::string& GetError() const { return error_; }

private:
    bool Take(const DeckBuilder::Value& value)
    {
        return Do([this, &value] { builder_.Take(value); });
    }

    template <class Work>
    bool Do(const Work& work)
    {
        try {
            work();
            return true;
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) { // of the data, or of what the JSON is
            error_ = WithPlace(error.what());
            return false;
        }
    }

    /// What data throw begins with the name of the keyword, which the place has.
    std::string WithPlace(std::string_view text) const
    {
        const std::string place = builder_.GetPlace();
        if (place.empty())
            return std::string(text);
        const std::string name = builder_.GetName() + ": ";
        return fmt::format("{}: {}", place, text.starts_with(name) ? text.substr(name.size()) : text);
    }

    DeckBuilder& builder_;
    std::string error_;
};

/// False, and the reader has the reason, if it is no JSON of a deck. Throws `SourceError` if it can't be
/// read.
bool Parse(const std::string& path, DumpReader& reader)
{
    if (path == standardInputPath)
        return nlohmann::json::sax_parse(std::cin, &reader);
    const auto source = Decks::SourceText::FromFile(path);
    if (source->GetText().empty())
        throw Decks::SourceError("the file is empty");
    return nlohmann::json::sax_parse(source->GetText(), &reader);
}

/// Prints nothing but a whole deck, so that nobody takes a part of it for the deck.
int LoadDump(LoadedLanguage& language, const DumpOptions& options)
{
    std::vector<std::string> keywords;
    DeckBuilder builder(language.GetTable(), OptionsFor(options.deck, options.read).GetTarget(),
        [&keywords](std::string&& text) { keywords.push_back(std::move(text)); });
    DumpReader reader(builder);
    bool isRead = false;
    try {
        isRead = Parse(options.deck, reader);
    } catch (const Decks::SourceError& error) {
        PrintError(fmt::format("can't read '{}': {}", MakePrintable(options.deck), error.what()));
        return Failure;
    }
    if (!isRead || !builder.IsWhole()) {
        PrintError(fmt::format("can't make a deck of '{}': {}", MakePrintable(options.deck),
            MakePrintable(isRead ? "expected an object with 'keywords'" : reader.GetError())));
        return Failure;
    }
    for (const std::string& text : keywords)
        Print(text);
    return Success;
}

int Dump(LoadedLanguage& language, const DumpOptions& options)
{
    if (options.isLoad)
        return LoadDump(language, options);
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const auto deck = ReadDeckOrReport(options.deck, OptionsFor(options.deck, options.read), deckLanguage,
        "of keywords with errors the data that could be read are printed");
    if (!deck)
        return Failure;
    DumpDeck(*deck, options.deck, Print);
    return Success;
}

} // namespace

Command MakeDumpCommand(CLI::App& application)
{
    const auto options = std::make_shared<DumpOptions>();
    CLI::App& command = *application.add_subcommand("dump",
        "Prints a whole deck as JSON: its keywords in their order, with their sections and data. With\n"
        "--load it makes the deck of such JSON again, as one file.");
    AddDeckArgument(command, options->deck);
    AddReadOptions(command, options->read);
    command.add_flag("--load", options->isLoad, "DECK is a file of JSON: print the deck that it is of");
    command.footer(
        "A record is an object of the items that it has, a list an array. An element of a list that is left "
        "to\n"
        "its default is null. A text that is no UTF-8 is an object whose 'latin1' has its bytes as "
        "characters.\n"
        "Values of variables are those of --set; one without a value is left out, and so is the name of a\n"
        "quantity of the user in place of a number. Comments, inclusions, skipped blocks, unknown keywords "
        "and\n"
        "numbers in place of names (old-form) are not in it. 'name' and 'section' of a keyword are before "
        "its "
        "'data'.\n"
        "Exit status: 0 success, 2 a file can't be read, or no deck can hold what is in it: nothing is "
        "printed\n"
        "then.\n\n"
        "Examples:\n"
        "  quor dump reservoir.data > reservoir.json\n"
        "  quor dump reservoir.data | jq '.keywords[] | select(.name == \"EQUIL\").data'\n"
        "  quor dump --load reservoir.json > copy.data");
    return {&command, [options](LoadedLanguage& language) { return Dump(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
