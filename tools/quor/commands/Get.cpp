#include "quor/deck/Deck.h"
#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckUnits.h"
#include "quor/deck/ValueAddress.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/NumpyArray.h"
#include "tools/quor/commands/ValueWords.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using nlohmann::ordered_json;

namespace {

enum class GetFormat { Text, Json, Csv, Npy };

struct GetOptions {
    std::string deck;
    std::vector<std::string> addresses;
    DeckReadOptions read;
    GetFormat format = GetFormat::Text;
    std::string output; // empty: standard output
    bool isBare = false; // the values alone
};

/// Prints, or writes the file that is asked for; false, and reported, if it can't be written.
bool Deliver(const GetOptions& options, const std::string& text)
{
    if (options.output.empty()) {
        Print(text);
        return true;
    }
    try {
        WriteFile(options.output, text);
        return true;
    } catch (const OutputError& error) {
        PrintError(fmt::format("can't write '{}': {}", options.output, error.what()));
        return false;
    }
}

/// Of all addresses, in their order. No value, and reported, if one of them matches nothing.
std::optional<std::vector<Decks::DeckValue>> ResolveAll(const Decks::Deck& deck, const GetOptions& options)
{
    std::vector<Decks::DeckValue> values;
    try {
        for (const std::string& text : options.addresses) {
            const auto address = Decks::ValueAddress::Parse(text);
            std::vector<Decks::DeckValue> found = Decks::Resolve(deck, address);
            if (found.empty())
                found.push_back(Decks::ResolveOne(deck, address)); // says what the deck has instead
            values.insert(
                values.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
        }
        return values;
    } catch (const Decks::AddressError& error) {
        PrintError(error.what());
        return std::nullopt;
    }
}

std::string ToLines(const Decks::Deck& deck, const std::vector<Decks::DeckValue>& values, bool isBare)
{
    std::string text;
    if (isBare) {
        for (const Decks::DeckValue& value : values)
            text += MakePrintable(WordOf(deck, value)) + '\n';
        return text;
    }
    const auto system = Decks::UnitSystemOf(deck);
    Columns table({"", "", ""});
    for (const Decks::DeckValue& value : values)
        table.Add({MakePrintable(value.address.ToString()), MakePrintable(WordOf(deck, value)),
            UnitOf(value, system)});
    for (std::size_t i = 0; i < values.size(); ++i)
        text += table.GetRow(i, 0, std::numeric_limits<std::size_t>::max());
    return text;
}

/// In quotes if it needs them.
std::string CsvCell(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string cell = "\"";
    for (const char c : text)
        cell += c == '"' ? "\"\"" : std::string(1, c);
    return cell + '"';
}

std::string ToCsv(
    const Decks::Deck& deck, const std::vector<Decks::DeckValue>& values, const ValueErrors& errors)
{
    const auto system = Decks::UnitSystemOf(deck);
    std::string text = "address,keyword,date,value,unit,file,line\n";
    for (const Decks::DeckValue& value : values) {
        const Decks::Location location = LocationOf(deck, value);
        text += fmt::format("{},{},{},{},{},{},{}\n", CsvCell(value.address.ToString()),
            CsvCell(value.address.keyword), value.address.date, CsvCell(errors.TextOf(value)),
            CsvCell(UnitOf(value, system)), CsvCell(location.file), location.line);
    }
    return text;
}

std::string ToJson(
    const Decks::Deck& deck, const std::vector<Decks::DeckValue>& values, const ValueErrors& errors)
{
    const auto system = Decks::UnitSystemOf(deck);
    auto rows = ordered_json::array();
    for (const Decks::DeckValue& value : values) {
        const std::string unit = UnitOf(value, system);
        ordered_json row = {{"address", value.address.ToString()}, {"keyword", value.address.keyword},
            {"date", value.address.date.empty() ? ordered_json() : ordered_json(value.address.date)},
            {"value", errors.JsonOf(value)}, {"unit", unit.empty() ? ordered_json() : ordered_json(unit)}};
        row.update(LocationJson(LocationOf(deck, value)));
        rows.push_back(std::move(row));
    }
    return Tools::ToText(WithVersion({{"values", std::move(rows)}}));
}

/// The values of a keyword that is a list of numbers; `number`, from 1, is which of them in the deck, 0 the
/// only one. Throws `std::invalid_argument`, with a sentence.
std::string ToNpy(const Decks::Deck& deck, const std::vector<std::string>& addresses)
{
    if (addresses.size() != 1)
        throw std::invalid_argument("--format npy holds one array; expected one keyword");
    const auto address = Decks::ValueAddress::Parse(addresses.front());
    if (!address.identifiers.empty() || !address.items.empty())
        throw std::invalid_argument("--format npy holds a whole array; expected the name of a keyword alone");
    const std::vector<Decks::DeckKeyword> found = deck.GetAll(address.keyword);
    if (found.size() > 1 && address.number == 0)
        throw std::invalid_argument(
            fmt::format("the deck has {0} keywords {1}; choose one, '{1}#1' to '{1}#{0}'", found.size(),
                address.keyword));
    if (address.number > found.size())
        throw std::invalid_argument(fmt::format(
            "'{}' isn't there; the deck has {}", address.ToString(), Plural(found.size(), "such keyword")));
    const Decks::DeckKeyword keyword =
        address.number == 0 ? deck.Get(address.keyword) : found[address.number - 1];
    return NumpyArray(keyword.GetName(), keyword.GetData());
}

int WriteNpy(const Decks::Deck& deck, const GetOptions& options)
{
    if (options.output.empty() && IsTerminal()) {
        PrintError("an array in the format npy is no text for a terminal; use --output FILE");
        return Failure;
    }
    try {
        return Deliver(options, ToNpy(deck, options.addresses)) ? Success : Failure;
    } catch (const Core::Service::Exception& error) { // of the address, or of a keyword that isn't there
        PrintError(error.what());
    } catch (const std::invalid_argument& error) {
        PrintError(error.what());
    }
    return Failure;
}

/// False, and reported, if words of the deck are in place of some of the values.
bool AreValidOrReport(const ValueErrors& errors, const std::vector<Decks::DeckValue>& values)
{
    std::set<const Decks::Finding*> reported;
    for (const Decks::DeckValue& value : values) {
        const Decks::Finding* const error = errors.Find(value);
        if (error && reported.insert(error).second)
            PrintError(fmt::format("{}: {}", LocationText(error->location), error->message));
    }
    return reported.empty();
}

int GetValues(LoadedLanguage& language, const GetOptions& options)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const bool hasPositions = options.format != GetFormat::Npy; // a whole array needs none
    const auto deck = ReadDeckOrReport(options.deck,
        OptionsFor(options.deck, options.read)
            .SetEditable(hasPositions)
            .SetMaxFindings(std::numeric_limits<std::size_t>::max()),
        deckLanguage);
    if (!deck || !IsApartOrReport(options.output, *deck))
        return Failure;
    if (options.format == GetFormat::Npy)
        return WriteNpy(*deck, options);
    const auto values = ResolveAll(*deck, options);
    if (!values)
        return Failure;
    const ValueErrors errors(*deck);
    const std::string text = options.format == GetFormat::Json ? ToJson(*deck, *values, errors)
        : options.format == GetFormat::Csv                     ? ToCsv(*deck, *values, errors)
                                                               : ToLines(*deck, *values, options.isBare);
    return Deliver(options, text) && AreValidOrReport(errors, *values) ? Success : Failure;
}

constexpr const char* getDetails =
    "An address is KEYWORD[RECORD].ITEM@DATE; what it leaves out matches all. A record is named by its "
    "well,\n"
    "group or number, a value of an array by its number: 'PORO[17]'. A value that isn't given is 1*.\n"
    "Several keywords of one name are numbered: '--format npy' accepts 'PORO#2', the second of the deck. "
    "Its\n"
    "array has one dimension and the order of the deck; a value left to its default is NaN.\n"
    "Exit status: 0 success, 2 the deck has no such value or an invalid one, or a file can't be read or "
    "written.\n\n"
    "Examples:\n"
    "  quor get field.data 'WCONPROD[P1].ORAT'\n"
    "  quor get field.data 'WCONPROD[P1].ORAT@2024-04-01' --bare\n"
    "  quor get field.data 'EQUIL' DIMENS --format csv\n"
    "  quor get field.data PORO --format npy --output poro.npy";

} // namespace

Command MakeGetCommand(CLI::App& application)
{
    const auto options = std::make_shared<GetOptions>();
    CLI::App& command = *application.add_subcommand(
        "get", "Prints values of a deck by their addresses: of one record, item and date, or of all.");
    AddDeckArgument(command, options->deck);
    command.add_option("ADDRESS", options->addresses, "Which values")->required()->type_name("ADDRESS");
    AddReadOptions(command, options->read);
    static const std::map<std::string, GetFormat> formats = {{"text", GetFormat::Text},
        {"json", GetFormat::Json}, {"csv", GetFormat::Csv}, {"npy", GetFormat::Npy}};
    command
        .add_option_function<std::string>(
            "--format", [options](const std::string& word) { options->format = formats.at(word); },
            "Output format; the default is text, npy is an array of numbers")
        ->transform(CLI::IsMember({"text", "json", "csv", "npy"}, CLI::ignore_case))
        ->type_name("NAME")
        ->take_last();
    command.add_option("--output", options->output, "Write to this file, not to standard output")
        ->type_name("FILE");
    command.add_flag("--bare", options->isBare, "Print the values alone, one a line");
    command.footer(getDetails);
    return {&command, [options](LoadedLanguage& language) { return GetValues(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
