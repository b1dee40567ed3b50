#include "quor/deck/Deck.h"
#include "quor/deck/DeckFormatter.h"
#include "quor/deck/FindingCodes.h"
#include "quor/foundation/service/MessageCapper.h"
#include "tests/deck/SameDecks.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

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

const std::filesystem::path folder = std::filesystem::path(QUOR_SOURCE_DIR) / "examples" / "decks";

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
std::string FindingsOf(const std::filesystem::path& deck, const Target& target, bool isStrict = false)
{
    std::string text;
    const Deck read = Read(deck, target, isStrict);
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

/// The command that a deck tells its reader to check it by.
std::string CommandFor(const Target& target, bool isStrict)
{
    const auto& simulator = SimulatorType::ToString(target.simulator);
    const auto& mode = SimulatorModeType::ToString(target.mode);
    return "-- quor check" + (target.simulator == SimulatorType::Any ? "" : " --simulator " + simulator)
        + (target.mode == SimulatorModeType::Any ? "" : " --mode " + mode) + (isStrict ? " --strict" : "");
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
    {"Field", "field/field"},
    {"FieldForCarrow", "field/field", carrowBlackOil}, // which passes over what another reads
    {"FieldForDunmere", "field/field", blackOil},
};

class CleanDecks : public testing::TestWithParam<CleanRow> { };

TEST_P(CleanDecks, HaveNoFindings)
{
    EXPECT_EQ(FindingsOf(folder / (std::string(GetParam().deck) + ".data"), GetParam().target), "");
}

TEST_P(CleanDecks, SurviveWriting)
{
    ExpectToSurviveWriting(folder / (std::string(GetParam().deck) + ".data"), GetParam().target);
}

TEST_P(CleanDecks, FitIntoOneFile)
{
    const std::string path = folder / (std::string(GetParam().deck) + ".data");
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
    EXPECT_EQ(DecksIn(folder), inTable);
}

/// Reads every deck of the examples, for any simulator and for one.
void ReadAllDecks()
{
    for (const std::string& directory : {std::string(), std::string("field"), std::string("faulty")}) {
        for (const std::string& name : DecksIn(folder / directory)) {
            for (const Target& target : {Target{}, carrow})
                Read((folder / directory / (name + ".data")), target);
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

/// A deck that is named after the code of its only finding.
struct FaultyRow {
    const char* code;
    const char* location;
    Target target = {};
};

const FaultyRow faultyRows[] = {
    {"abbreviated-word", "20:13"},
    {"bad-date", "24:3"},
    {"bad-repeat", "23:9"},
    {"bad-silence", "19:14"},
    {"blank-text", "16:13"},
    {"choice-not-valid", "23:11", carrow},
    {"choice-unsupported", "17:25", carrow},
    {"column-order", "20:13"},
    {"comma-in-number", "17:11"},
    {"date-order", "25:3"},
    {"deprecated-word", "20:13"},
    {"encoding", "include/wide.inc:1:1"},
    {"extra-default", "16:22"},
    {"extra-slash", "14:1"},
    {"implicit-end", "15:1"},
    {"include-count", "include/four-hundred.inc:11:9"},
    {"include-loop", "include/loop.inc:4:9"},
    {"include-missing", "19:3"},
    {"include-name", "16:1"},
    {"indented-keyword", "14:3"},
    {"item-not-valid", "17:31", blackOil},
    {"item-unsupported", "20:28", carrow},
    {"long-keyword", "20:1"},
    {"long-text", "17:6"},
    {"lower-case", "18:1"},
    {"missing-precedent", "16:1"},
    {"no-default", "17:12"},
    {"no-section", "4:1"},
    {"not-a-choice", "17:18"},
    {"odd-character", "16:3"},
    {"old-form", "17:3"},
    {"out-of-range", "17:12"},
    {"padded-text", "16:3"},
    {"quoted-assignment", "16:11"},
    {"remark-text", "8:9"},
    {"repeated-date", "25:3"},
    {"section-order", "19:1"},
    {"stray-end", "25:1"},
    {"stray-endinc", "18:1"},
    {"stray-endskip", "18:1"},
    {"stray-text", "18:3"},
    {"text-after-keyword", "15:6"},
    {"too-few-values", "7:9"},
    {"too-many-values", "7:11"},
    {"unclosed-data", "17:11"},
    {"unclosed-list", "16:23"},
    {"unclosed-quote", "23:3"},
    {"unclosed-scope", "22:1"},
    {"unclosed-skip", "19:1"},
    {"unclosed-text", "14:1"},
    {"unknown-alias", "21:3"},
    {"unknown-keyword", "16:1"},
    {"unknown-name", "23:17"},
    {"unknown-variable", "20:16"},
    {"wrong-mode", "16:1", blackOil},
    {"wrong-section", "18:1"},
    {"wrong-simulator", "14:1", carrow},
    {"wrong-size", "17:21"},
    {"wrong-type", "19:19"},
};

std::set<std::string> FaultyCodes()
{
    std::set<std::string> codes;
    for (const FaultyRow& row : faultyRows)
        codes.insert(row.code);
    return codes;
}

bool IsStrict(const std::string& code)
{
    return std::any_of(Codes().begin(), Codes().end(),
        [&](const CodeInfo& info) { return info.name == code && info.isStrict; });
}

class FaultyDecks : public testing::TestWithParam<FaultyRow> {
protected:
    const std::filesystem::path path_ = folder / "faulty" / (std::string(GetParam().code) + ".data");
    const bool isStrict_ = IsStrict(GetParam().code);
};

TEST_P(FaultyDecks, HaveOneFinding)
{
    EXPECT_EQ(FindingsOf(path_, GetParam().target, isStrict_),
        std::string(GetParam().location) + " " + GetParam().code);
}

TEST_P(FaultyDecks, SurviveWriting)
{
    if (std::string(GetParam().code) != "include-count") // the files of which would be written as often
        ExpectToSurviveWriting(path_, GetParam().target);
}

TEST_P(FaultyDecks, ReportHowToCheckThem)
{
    std::string line;
    std::getline(std::ifstream(path_), line);
    EXPECT_EQ(line, CommandFor(GetParam().target, isStrict_) + " " + GetParam().code + ".data");
}

INSTANTIATE_TEST_SUITE_P(Codes, FaultyDecks, testing::ValuesIn(faultyRows), [](const auto& row) {
    std::string name = row.param.code;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(FaultyDecks, AreAllOfTheFolder)
{
    std::set<std::string> inTable = FaultyCodes();
    inTable.insert("three-mistakes");
    EXPECT_EQ(DecksIn(folder / "faulty"), inTable);
}

TEST(FaultyDecks, CoverEveryCode)
{
    std::set<std::string> covered = FaultyCodes();
    covered.insert("include-depth"); // takes too many files: see below
    std::set<std::string> all;
    for (const CodeInfo& info : Codes())
        all.insert(info.name);
    EXPECT_EQ(all, covered);
}

TEST(FaultyDecks, MayBeTooDeep)
{
    const TemporaryDirectory directory;
    const std::string deck = directory.Write("deck.data", "RUNSPEC\nINCLUDE\n  '1.inc' /\n");
    for (int i = 1; i <= 101; ++i)
        directory.Write(std::to_string(i) + ".inc", "INCLUDE '" + std::to_string(i + 1) + ".inc' /\n");
    EXPECT_EQ(FindingsOf(deck, {}), "100.inc:1:9 include-depth");
}

} // namespace
