#include "quor/deck/DeckSource.h"

#include "quor/deck/Deck.h"
#include "tests/deck/Language.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/stat.h>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

const DeckLanguage& SourceLanguage()
{
    static const DeckLanguage language(SmallTable());
    return language;
}

/// "file:line:code" of each finding.
std::string FindingsOf(const std::string& path, std::shared_ptr<const DeckSource> source)
{
    const Deck deck = Deck::Read(path, SourceLanguage(), ReadOptions().SetSource(std::move(source)));
    std::string text;
    for (const Finding& finding : deck.GetFindings()) {
        text += (text.empty() ? "" : " ") + finding.location.file + ":"
            + std::to_string(finding.location.line) + ":" + finding.code;
        EXPECT_EQ(deck.GetFiles().LocationOf(finding.range).line, finding.location.line);
    }
    return text;
}

struct Inclusion {
    const char* name;
    const char* path; // as the deck includes it
    const char* included; // text of the buffer "case/part.inc"
    const char* findings;
};

class DeckInMemory : public testing::TestWithParam<Inclusion> { };

TEST_P(DeckInMemory, IsReadWithWhatItIncludes)
{
    const auto source = std::make_shared<MemorySource>();
    source->Set("case/deck.data", std::string("RUNSPEC\nINCLUDE\n '") + GetParam().path + "' /\n");
    source->Set("case/part.inc", std::string(GetParam().included));
    EXPECT_EQ(FindingsOf("case/deck.data", source), GetParam().findings);
}

const std::string absolutePart = (std::filesystem::current_path() / "case/part.inc").string();
const std::string absoluteFinding = absolutePart + ":1:unknown-keyword";

INSTANTIATE_TEST_SUITE_P(Inclusions, DeckInMemory,
    testing::Values(Inclusion{"Sound", "part.inc", "GRID\n", ""},
        Inclusion{"AnotherSpelling", "x/../part.inc", "NOSUCHKW\n", "case/x/../part.inc:1:unknown-keyword"},
        Inclusion{"AbsolutePath", absolutePart.c_str(), "NOSUCHKW\n", absoluteFinding.c_str()},
        Inclusion{"Missing", "none.inc", "", "case/deck.data:3:include-missing"},
        Inclusion{"Itself", "part.inc", "INCLUDE\n 'x/../part.inc' /\n", "case/part.inc:2:include-loop"}),
    CaseName<Inclusion>);

TEST(MemoryBeforeFiles, ServesTheBufferAndElseTheFile)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("deck.data", "RUNSPEC\nINCLUDE\n 'part.inc' /\n");
    const std::string part = folder.Write("part.inc", "NOSUCHKW\n");
    const auto files = std::make_shared<FileSource>();
    const auto source = std::make_shared<MemorySource>(files);
    EXPECT_EQ(FindingsOf(deck, source), part + ":1:unknown-keyword");
    source->Set(part, std::string("GRID\n"));
    EXPECT_EQ(FindingsOf(deck, source), "");
    source->Remove(part);
    EXPECT_EQ(FindingsOf(deck, source), part + ":1:unknown-keyword");
    EXPECT_EQ(FindingsOf(deck, files), part + ":1:unknown-keyword");
}

TEST(MemoryBeforeFiles, ServesABufferByAnySpellingOfItsPath)
{
    const auto source = std::make_shared<MemorySource>();
    source->Set(std::filesystem::current_path() / "deck.data", std::string("RUNSPEC\nNOSUCHKW\n"));
    EXPECT_EQ(FindingsOf("./deck.data", source), "./deck.data:2:unknown-keyword");
    source->Remove("deck.data");
    EXPECT_THROW(FindingsOf("./deck.data", source), SourceError);
}

/// Reading one is an error, or has a text.
TEST(AFile, IsReadToItsEndOrRefused)
{
    const TemporaryDirectory folder;
    const std::string pipe = (folder.Path() / "pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const auto reasonOf = [](const std::string& path) {
        return ReasonOf([&] { SourceText::FromFile(path); });
    };
    EXPECT_EQ(reasonOf(pipe), "it is not a regular file");
    EXPECT_EQ(reasonOf("/dev/null"), "it is not a regular file");
    EXPECT_EQ(reasonOf(std::string("/proc/self/status\0.inc", 22)), "the name contains a zero byte");
    EXPECT_EQ(reasonOf(folder.Path().string()), "it is a folder, not a file");
    EXPECT_EQ(reasonOf("/proc/self/mem"), "Input/output error");
    EXPECT_EQ(reasonOf("/proc/self/pagemap"), "it has no size, and more than 64 MiB");
    EXPECT_EQ(SourceText::FromFile("/proc/self/status")->GetText().substr(0, 6), "Name:\t");
    EXPECT_EQ(SourceText::FromFile(folder.Write("empty", ""))->GetText(), "");
}

TEST(AFile, ThatIsCutShortWhileItIsReadIsRefused)
{
    const TemporaryDirectory folder;
    const std::string number = "1234567 ";
    std::string array = "GRID\nPORO\n ";
    while (array.size() < std::size_t(3) << 20)
        array += number;
    const auto cut = [&](std::size_t, std::size_t) {
        std::filesystem::resize_file(folder.Path() / "a.inc", 9);
    };
    const auto read = [&] {
        folder.Write("a.inc", array + "/\n");
        return Deck::Read(
            folder.Write("d.data", "INCLUDE 'a.inc' /\n"), SourceLanguage(), ReadOptions().SetProgress(cut));
    };
    EXPECT_EQ(ReasonOf(read), "") << "it was copied";
    SourceText::AllowMapping();
    const std::string place = folder.Path().string();
    EXPECT_EQ(ReasonOf(read),
        "can't read '" + place + "/d.data': '" + place + "/a.inc' was cut short while it was read");
    folder.Write("a.inc", array + "/\n");
    const auto text = SourceText::FromFile(place + "/a.inc");
    std::filesystem::resize_file(folder.Path() / "a.inc", 0);
    EXPECT_EQ(text->GetText().back(), '\0');
    EXPECT_FALSE(text->IsIntact());
}

TEST(MemoryAlone, HasNoOtherFiles)
{
    const auto source = std::make_shared<MemorySource>();
    const auto read = [&] { FindingsOf("deck.data", source); };
    EXPECT_EQ(ReasonOf(read), "can't read 'deck.data': No such file or directory");
    source->Set("deck.data", std::shared_ptr<const SourceText>());
    EXPECT_EQ(ReasonOf(read), "can't read 'deck.data': the source returned no text");
}

TEST(MemoryWithoutAText, IsAFileThatCannotBeRead)
{
    const auto source = std::make_shared<MemorySource>();
    source->Set("deck.data", std::shared_ptr<const SourceText>());
    EXPECT_THROW(FindingsOf("deck.data", source), SourceError);
    source->Set("deck.data", std::string("RUNSPEC\nINCLUDE\n 'part.inc' /\n"));
    source->Set("part.inc", std::shared_ptr<const SourceText>());
    EXPECT_EQ(FindingsOf("deck.data", source), "deck.data:3:include-missing");
}

TEST(ProgressOfARead, IsReportedForEachMebibyteAndAtTheEnd)
{
    std::string deck = "RUNSPEC\n";
    while (deck.size() < (3U << 20))
        deck += "DIMENS\n 1 2 3 /\n";
    std::vector<std::size_t> done;
    const std::size_t size = deck.size();
    Deck::ReadText(
        deck, SourceLanguage(), ReadOptions().SetProgress([&](std::size_t read, std::size_t known) {
            EXPECT_EQ(known, size);
            done.push_back(read);
        }));
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
    EXPECT_GE(done.size(), 4U);
    EXPECT_EQ(done.back(), size);
}

TEST(DeckThatCannotBeRead, IsNamed)
{
    const auto options = ReadOptions().SetSource(std::make_shared<MemorySource>());
    try {
        Deck::Read("none.data", SourceLanguage(), options);
        FAIL();
    } catch (const SourceError& error) {
        EXPECT_STREQ(error.what(), "can't read 'none.data': No such file or directory");
    }
}

TEST(ACallback, EndsTheReadWithWhatItThrows) // also what is thrown for files
{
    const auto source = std::make_shared<MemorySource>();
    source->Set("deck.data", std::string("RUNSPEC -- quor: of\nINCLUDE 'part.inc' /\n"));
    source->Set("part.inc", std::string("\xFF\xFE"));
    const auto fail = [](auto&&...) -> bool { throw SourceError("the host has no more room"); };
    const ReadOptions none = ReadOptions().SetSource(source);
    for (const auto& options : {ReadOptions(none).SetProgress(fail), ReadOptions(none).SetCancellation(fail),
             ReadOptions(none).SetKnownFinding(fail), ReadOptions(none).SetReportedFile(fail)})
        EXPECT_EQ(ReasonOf([&] { Deck::Read("deck.data", SourceLanguage(), options); }),
            "the host has no more room");
}

TEST(CancelledRead, EndsAtTheNextKeyword)
{
    const auto source = std::make_shared<MemorySource>();
    source->Set("deck.data", std::string("RUNSPEC\nGRID\nRUNSPEC\n"));
    int asked = 0;
    const auto options = ReadOptions().SetSource(source).SetCancellation([&asked] { return ++asked == 2; });
    try {
        Deck::Read("deck.data", SourceLanguage(), options);
        ADD_FAILURE() << "it was read to its end";
    } catch (const ReadCancelled& cancelled) {
        EXPECT_STREQ(cancelled.what(), "reading the deck was cancelled");
    }
    EXPECT_EQ(asked, 2);
}

} // namespace
