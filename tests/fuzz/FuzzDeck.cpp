// Bytes become a deck and a file that it may include. Whatever they say, reading them, telling what was found
// and writing them goes well, and what was written says the same when it is read.

#include "quor/data/KeywordDataEqual.h"
#include "quor/deck/CellArrays.h"
#include "quor/deck/DeckDifference.h"
#include "quor/deck/DeckEditor.h"
#include "quor/deck/DeckFormatter.h"
#include "quor/deck/DeckSummary.h"
#include "quor/deck/DeckUnits.h"
#include "quor/deck/Portability.h"
#include "quor/deck/ValueAddress.h"
#include "quor/deck/WriteKeyword.h"
#include "quor/foundation/service/Log.h"
#include "quor/foundation/service/xml/XMLDocument.h"
#include "tests/deck/SameDecks.h"
#include "tests/support/Documents.h"
#include "tools/quor/findings/FindingFormat.h"
#include "tools/quor/findings/FindingJson.h"
#include "tools/quor/findings/FindingLines.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/findings/FindingXml.h"
#include "tools/quor/terminal/Json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Core::Decks;
using Veld::Quor::Tests::SayTheSame;
using Veld::Quor::Tests::TemporaryDirectory;
using namespace Veld::Quor::Tools;

namespace {

/// Between the deck and the file that it may include.
constexpr char separator = '\x1E';
/// Files from here on are mapped, and must not change while they are read.
constexpr std::size_t largestInput = (std::size_t(64) << 10) - 1;
/// What repeats and inclusions may make of an input; more takes time and memory, as it should.
constexpr std::size_t mostRepeated = 200'000;
constexpr std::size_t mostIncluded = std::size_t(256) << 10;

struct Conditions {
    Target target;
    bool isEditable;
};

/// By the first byte, unless that is text already.
constexpr Conditions allConditions[] = {
    {{SimulatorType::Any, SimulatorModeType::Any}, false},
    {{SimulatorType::Carrow, SimulatorModeType::Any}, true},
    {{SimulatorType::Carrow, SimulatorModeType::BlackOil}, false},
    {{SimulatorType::Dunmere, SimulatorModeType::BlackOil}, false},
    {{SimulatorType::Dunmere, SimulatorModeType::Compositional}, true},
    {{SimulatorType::Dunmere, SimulatorModeType::Thermal}, false},
    {{SimulatorType::Sedge, SimulatorModeType::Any}, true},
    {{SimulatorType::Wend, SimulatorModeType::Any}, false},
    {{SimulatorType::Any, SimulatorModeType::Thermal}, true},
};

void Require(bool holds, const std::string& claim)
{
    if (holds)
        return;
    std::cerr << "does not hold: " << claim << '\n';
    std::abort();
}

// Files

/// The deck, and what it may include.
using Texts = std::array<std::string, 2>;

const std::array<std::string, 2> names = {"deck.data", "a.inc"};

const TemporaryDirectory& GetFolder()
{
    static const TemporaryDirectory folder;
    return folder;
}

std::string GetDeck()
{
    return GetFolder().Path() / names[0];
}

void Store(const Texts& texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i)
        GetFolder().Write(names[i], texts[i]);
}

/// Which of the two a file is; none: some other.
std::optional<std::size_t> FindPlace(const std::string& file)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (std::filesystem::equivalent(file, GetFolder().Path() / names[i]))
            return i;
    }
    return std::nullopt;
}

// Input

struct Input {
    Conditions conditions;
    Texts texts;
};

Input Parse(std::string_view bytes)
{
    const auto first = bytes.empty() ? std::size(allConditions) : static_cast<std::uint8_t>(bytes.front());
    const bool isChosen = first < std::size(allConditions);
    const std::string_view text = bytes.substr(isChosen ? 1 : 0);
    const std::size_t end = std::min(text.find(separator), text.size());
    return {allConditions[isChosen ? first : 0],
        {std::string(text.substr(0, end)), std::string(text.substr(std::min(end + 1, text.size())))}};
}

/// How many values the repeats in a text stand for.
std::size_t CountRepeated(std::string_view text)
{
    std::size_t sum = 0;
    std::size_t count = 0;
    for (const char c : text) {
        const bool isDigit = c >= '0' && c <= '9';
        sum += c == '*' ? count : 0;
        count = isDigit ? std::min(count * 10 + static_cast<std::size_t>(c - '0'), mostRepeated + 1) : 0;
    }
    return sum;
}

std::size_t CountInclusions(std::string_view text)
{
    constexpr std::string_view word = "INCLUDE";
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

bool IsModest(const Texts& texts)
{
    const std::size_t inclusions = CountInclusions(texts[0]);
    return inclusions * texts[1].size() <= mostIncluded
        && CountRepeated(texts[0]) + std::max<std::size_t>(inclusions, 1) * CountRepeated(texts[1])
        <= mostRepeated;
}

// Checks

/// Made again now and then, since they keep each word that they were asked for.
const DeckLanguage& GetLanguage()
{
    static std::optional<DeckLanguage> language;
    static int uses = 0;
    if (uses++ % 2000 == 0)
        language.emplace();
    return *language;
}

/// As `quor format` does: a file that is included several times, and would be written in several ways, stays
/// as it is.
Texts WriteFiles(const Deck& deck)
{
    DeckFormatter formatter(deck);
    Texts texts;
    std::array<bool, 2> isWritten = {};
    for (std::uint32_t i = 0; i < deck.GetFiles().GetSize(); ++i) {
        std::string text = formatter.FormatFile(i);
        const auto location = FindPlace(deck.GetFiles().Get(i).name);
        if (!location)
            continue;
        if (isWritten[*location] && texts[*location] != text)
            text = deck.GetFiles().GetText(i);
        texts[*location] = std::move(text);
        isWritten[*location] = true;
    }
    return texts;
}

/// Whether some finding is about how the deck hangs together, which an included file decides for itself.
bool IsBroken(const Deck& deck)
{
    const auto& kept = deck.GetFindings().GetKept();
    return deck.GetFindings().GetOmittedCount() > 0
        || std::any_of(kept.begin(), kept.end(), [](const Finding& finding) {
               return finding.code.starts_with("include-") || finding.code.starts_with("unclosed-")
                   || finding.code.starts_with("stray-") || finding.code == "unknown-alias";
           });
}

void RequireSame(const Deck& deck, const Deck& again, const std::string& what)
{
    const std::size_t errors = again.GetFindings().GetCount(Severity::Error);
    Require(errors == deck.GetFindings().GetCount(Severity::Error),
        what + " has as many errors, and not " + std::to_string(errors));
    const testing::AssertionResult same = SayTheSame(deck, again);
    Require(same, what + " says the same: " + same.message());
}

void CheckWritten(const Deck& deck, const ReadOptions& options, const DeckLanguage& language)
{
    const Texts written = WriteFiles(deck);
    const std::string all = DeckFormatter(deck).FormatAll();
    if (deck.GetFindings().GetHiddenCount(Hiding::Suppressed) > 0)
        return; // by comments, which are for a line, or for the rest of a file
    Store(written);
    std::optional<Deck> again = Deck::Read(GetDeck(), language, options);
    RequireSame(deck, *again, "the written deck");
    Require(Compare(deck, *again, ComparisonOptions().SetDefaultsDiffer(true)).groups.empty(),
        "diff finds nothing");
    Require(WriteFiles(*again) == written, "the second time gives the same text");
    if (deck.GetFiles().GetSize() == 1)
        Require(all == written[0], "the deck is in one file already");
    if (deck.GetFiles().GetSize() == 1 || IsBroken(deck))
        return;
    again.reset();
    Store({all, ""});
    again = Deck::Read(GetDeck(), language, options);
    RequireSame(deck, *again, "the deck in one file");
}

/// Whatever the deck has in its texts, what is for programs can be read by them.
void CheckFormats(const Findings& findings)
{
    CountsText(findings);
    GccText({findings});
    GitHubText({findings});
    for (const Finding& finding : findings.GetKept())
        Require(nlohmann::json::accept(ToLine(FindingJson(finding))), "a finding is JSON");
    Require(
        nlohmann::json::accept(FindingsText(FindingFormat::Sarif, findings, {})), "a log of SARIF is JSON");
    const std::string report = JUnitReport(JUnitSuite(GetDeck(), findings, true));
    Veld::Quor::Core::Service::XML::XMLDocument document;
    Require(document.readMemory(report.data(), report.size(), "report"), "a report for JUnit is XML");
}

void CheckAnswers(const Deck& deck, const Conditions& conditions)
{
    FindingsText(deck.GetFindings());
    CheckFormats(deck.GetFindings());
    Summarize(deck);
    for (const bool isStrict : {false, true})
        Require(Compare(deck, deck, ComparisonOptions().SetDefaultsDiffer(isStrict)).groups.empty(),
            "a deck doesn't differ from itself");
    FindLosses(deck, PortOptions().SetLocations(conditions.isEditable));
    FindLosses(deck,
        PortOptions()
            .SetFrom(conditions.target)
            .SetTo({SimulatorType::Dunmere, SimulatorModeType::Any})
            .SetLocations(true));
}

/// A name that somebody gives a value: it is refused with advice, or the full names of what it names say the
/// same.
void CheckAddress(const Deck& deck, std::string_view text)
{
    try {
        const ValueAddress address = ValueAddress::Parse(text);
        for (const DeckValue& value : Resolve(deck, address))
            Require(ValueAddress::Parse(value.address.ToString()) == value.address,
                "an address can be read again");
        ResolveOne(deck, address);
    } catch (const AddressError&) {
        // with the place, and what would be right
    }
}

/// What the other file would be as a deck: it differs both ways.
void CheckDifference(const Deck& deck, const std::string& text, const DeckLanguage& language)
{
    const Deck other = Deck::ReadText(text, language);
    Require(Compare(deck, other).groups.empty() == Compare(other, deck).groups.empty(),
        "a difference is one in both directions");
}

/// What is made of single keywords.
void CheckKeywords(const Deck& deck, const Conditions& conditions)
{
    FindCellArrays(deck);
    FindUnchecked(deck);
    UnitSystemOf(deck);
    for (const DeckKeyword& keyword : deck) {
        if (!keyword.IsSound() || !keyword.FindData())
            continue;
        const auto copy = keyword.GetData().CloneSafely();
        Require(KeywordDataEqual(keyword.GetData(), *copy), "a clone is the same");
        try {
            WriteKeyword(*copy, conditions.target);
        } catch (const EditError&) {
            // what no deck can hold
        }
    }
}

std::string_view ToText(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    Veld::Quor::Core::Service::Log::SetHandler(
        [](const char*, Veld::Quor::Core::Service::MessageSeverity) {});
    ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
    ::unsetenv("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    if (std::filesystem::is_directory("/dev/shm")) // files in memory are faster
        ::setenv("TMPDIR", "/dev/shm", 0);
    GetLanguage();
    GetFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Input input = Parse(ToText(data, size));
    if (size > largestInput || !IsModest(input.texts))
        return -1;
    const DeckLanguage& language = GetLanguage();
    const auto options = ReadOptions()
                             .SetTarget(input.conditions.target)
                             .SetEditable(input.conditions.isEditable)
                             .SetVariable("ONE", "1");
    Store(input.texts);
    const Deck deck = Deck::Read(GetDeck(), language, options);
    CheckAnswers(deck, input.conditions);
    CheckKeywords(deck, input.conditions);
    CheckAddress(deck, std::string_view(input.texts[1]).substr(0, input.texts[1].find('\n')));
    CheckDifference(deck, input.texts[1], language);
    CheckWritten(deck, options, language);
    return 0;
}
