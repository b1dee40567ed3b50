#include "quor/deck/Deck.h"
#include "quor/deck/DeckFormatter.h"
#include "quor/deck/FindingCodes.h"
#include "quor/foundation/service/MessageCapper.h"
#include "tests/deck/FindingText.h"
#include "tests/deck/SameDecks.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using Veld::Quor::Core::Service::MessageCapper;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

constexpr Target carrow{SimulatorType::Carrow, SimulatorModeType::Any};
constexpr Target carrowBlackOil{SimulatorType::Carrow, SimulatorModeType::BlackOil};
constexpr Target blackOil{SimulatorType::Dunmere, SimulatorModeType::BlackOil};
constexpr Target compositional{SimulatorType::Dunmere, SimulatorModeType::Compositional};
constexpr Target thermal{SimulatorType::Dunmere, SimulatorModeType::Thermal};

const std::filesystem::path exampleDecks = std::filesystem::path(QUOR_SOURCE_DIR) / "examples" / "decks";

const DeckLanguage& GetLanguage()
{
    static const DeckLanguage language;
    return language;
}

Deck Read(const std::string& path, const Target& target, bool isStrict = false)
{
    return Deck::Read(path, GetLanguage(), ReadOptions().SetTarget(target).SetStrict(isStrict));
}

/// "line:column code" of each finding, with the file in front if it isn't the deck itself.
std::string FindingsOf(const std::filesystem::path& deck, const Target& target)
{
    std::string text;
    const Deck read = Read(deck, target);
    for (const Finding& finding : read.GetFindings()) {
        const auto file = std::filesystem::path(finding.location.file).lexically_relative(deck.parent_path());
        text += (text.empty() ? "" : ", ") + (file == deck.filename() ? "" : file.string() + ":")
            + std::to_string(finding.location.line) + ":" + std::to_string(finding.location.column) + " "
            + finding.code;
    }
    return text;
}

/// Reads a deck, writes its files into another folder, and reads them there.
void ExpectToSurviveWriting(const std::filesystem::path& path, const Target& target)
{
    const auto deck = Read(path, target);
    DeckFormatter formatter(deck);
    const TemporaryDirectory tree;
    for (std::uint32_t i = 0; i < deck.GetFiles().GetSize(); ++i) {
        const auto file = std::filesystem::path(deck.GetFiles().Get(i).name);
        const std::string name = file.lexically_normal().lexically_relative(path.parent_path());
        std::filesystem::create_directories((tree.Path() / name).parent_path());
        tree.Write(name, formatter.FormatFile(i));
    }
    const auto again = Read((tree.Path() / path.filename()), target);
    EXPECT_TRUE(SayTheSame(deck, again));
    DeckFormatter second(again);
    for (std::uint32_t i = 0; i < again.GetFiles().GetSize(); ++i)
        EXPECT_TRUE(second.FormatFile(i) == again.GetFiles().GetText(i)) << again.GetFiles().Get(i).name;
}

std::set<std::string> DecksIn(const std::filesystem::path& directory)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        if (entry.path().extension() == ".data")
            names.insert(entry.path().stem().string());
    }
    return names;
}

struct CleanRow {
    const char* name;
    const char* deck;
    Target target = {};
};

const CleanRow cleanRows[] = {
    {"FirstComparative", "first-comparative"},
    {"FirstComparativeForCarrow", "first-comparative", carrowBlackOil},
    {"Compositional", "compositional"},
    {"CompositionalForItsMode", "compositional", compositional},
    {"SteamInjection", "steam-injection"},
    {"SteamInjectionForItsMode", "steam-injection", thermal},
    {"Fractured", "fractured"},
    {"FracturedForCarrow", "fractured", carrowBlackOil},
    {"HorizontalWell", "horizontal-well"},
    {"HorizontalWellForDunmere", "horizontal-well", blackOil},
    {"GasNetwork", "gas-network"},
    {"GasNetworkForCarrow", "gas-network", carrowBlackOil},
    {"Field", "field/field"},
    {"FieldForCarrow", "field/field", carrowBlackOil}, // which passes over what another reads
    {"FieldForDunmere", "field/field", blackOil},
};

class CleanDecks : public testing::TestWithParam<CleanRow> { };

TEST_P(CleanDecks, HaveNoFindings)
{
    EXPECT_EQ(FindingsOf(exampleDecks / (std::string(GetParam().deck) + ".data"), GetParam().target), "");
}

TEST_P(CleanDecks, SurviveWriting)
{
    ExpectToSurviveWriting(exampleDecks / (std::string(GetParam().deck) + ".data"), GetParam().target);
}

TEST_P(CleanDecks, FitIntoOneFile)
{
    const std::string path = exampleDecks / (std::string(GetParam().deck) + ".data");
    const auto deck = Read(path, GetParam().target);
    const TemporaryDirectory directory;
    const std::string all = directory.Write("all.data", DeckFormatter(deck).FormatAll());
    const auto again = Read(all, GetParam().target);
    EXPECT_EQ(again.GetFiles().GetSize(), 1);
    EXPECT_TRUE(SayTheSame(deck, again));
}

INSTANTIATE_TEST_SUITE_P(Examples, CleanDecks, testing::ValuesIn(cleanRows), CaseName<CleanRow>);

TEST(CleanDecks, AreAllOfTheFolder)
{
    std::set<std::string> inTable;
    for (const CleanRow& row : cleanRows)
        inTable.insert(row.deck);
    inTable.erase("field/field");
    EXPECT_EQ(DecksIn(exampleDecks), inTable);
}

/// Reads every deck of the examples, for any simulator and for one. Nothing may depend on whether the ranges
/// of values are kept; where they are, no record is read in one go.
void ReadAllDecks()
{
    for (const std::string& directory : {std::string(), std::string("field"), std::string("faulty")}) {
        for (const std::string& name : DecksIn(exampleDecks / directory)) {
            for (const Target& target : {Target{}, carrow}) {
                const std::string path = exampleDecks / directory / (name + ".data");
                const Deck deck = Read(path, target, true);
                const Deck editable = Deck::Read(
                    path, GetLanguage(), ReadOptions().SetTarget(target).SetStrict(true).SetEditable(true));
                EXPECT_TRUE(SayTheSame(deck, editable)) << path;
                EXPECT_EQ(Dump(deck.GetFindings(), exampleDecks), Dump(editable.GetFindings(), exampleDecks));
            }
        }
    }
}

TEST(ReadingADeck, LeavesTheLogAndItsLimitsAlone)
{
    GetLanguage();
    MessageCapper& capper = *MessageCapper::instance();
    const LogCapture log;
    capper.Reset();
    capper.SetLimit(1);
    capper.logW("of the host");
    ReadAllDecks();
    capper.logW("of the host");
    EXPECT_EQ(log.Text(), "of the host\n") << "once: the limit and what was counted are as before";
    capper.SetLimit(MessageCapper::DefaultLimit);
    capper.Reset();
}

/// A deck that is named after the code of its only finding. Its first lines are comments: the command that
/// checks it, and the finding.
struct FaultyDeck {
    explicit FaultyDeck(const std::string& code)
        : path(exampleDecks / "faulty" / (code + ".data"))
    {
        std::ifstream file(path);
        std::string line;
        std::getline(file, line);
        std::istringstream words(line);
        for (std::string word; words >> word; command.push_back(word)) {
            if (word == "--strict")
                isStrict = true;
            else if (word == "--simulator" && words >> word)
                target.simulator = SimulatorType::FromString(word);
            else if (word == "--mode" && words >> word)
                target.mode = SimulatorModeType::FromString(word);
        }
        std::getline(file, finding);
    }

    std::filesystem::path path;
    Target target;
    bool isStrict = false;
    std::vector<std::string> command; // without its options' values
    std::string finding;
};

std::set<std::string> FaultyCodes()
{
    std::set<std::string> codes = DecksIn(exampleDecks / "faulty");
    codes.erase("three-mistakes");
    return codes;
}

class FaultyDecks : public testing::TestWithParam<std::string> {
protected:
    const FaultyDeck deck_{GetParam()};
};

TEST_P(FaultyDecks, HaveTheFindingOfTheirSecondLine)
{
    const std::string directory = deck_.path.parent_path().string() + "/";
    std::string findings;
    const Deck read = Read(deck_.path, deck_.target, deck_.isStrict);
    for (const Finding& finding : read.GetFindings())
        findings += "-- " + ToString(finding);
    for (std::size_t at; (at = findings.find(directory)) != std::string::npos;)
        findings.erase(at, directory.size());
    EXPECT_EQ(findings, deck_.finding);
    EXPECT_TRUE(findings.ends_with(" [" + GetParam() + "]"));
    EXPECT_EQ(deck_.command.back(), GetParam() + ".data");
}

TEST_P(FaultyDecks, SurviveWriting)
{
    if (GetParam() != "include-count") // the files of which would be written as often
        ExpectToSurviveWriting(deck_.path, deck_.target);
}

INSTANTIATE_TEST_SUITE_P(Codes, FaultyDecks, testing::ValuesIn(FaultyCodes()), [](const auto& row) {
    std::string name = row.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(FaultyDecks, CoverEveryCode)
{
    std::set<std::string> covered = FaultyCodes();
    covered.insert("include-depth"); // takes too many files: see below
    covered.insert({"choice-unsupported", "item-unsupported"}); // the built-in language has none
    std::set<std::string> all;
    for (const CodeInfo& info : Codes())
        all.insert(info.name);
    EXPECT_EQ(all, covered);
}

TEST(FaultyDecks, IncludeNoDeeperThanAHundred)
{
    const TemporaryDirectory directory;
    const std::string deck = directory.Write("deck.data", "RUNSPEC\nINCLUDE\n  '1.inc' /\n");
    for (int i = 1; i <= 101; ++i)
        directory.Write(std::to_string(i) + ".inc", "INCLUDE '" + std::to_string(i + 1) + ".inc' /\n");
    EXPECT_EQ(FindingsOf(deck, {}), "100.inc:1:9 include-depth");
}

} // namespace
