#include "tests/metadata/MetadataText.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

/// A keyword that is valid in the sections named, and that differs from others of its name in its
/// description.
std::string Keyword(
    const std::string& name, const std::string& mark, std::initializer_list<const char*> sections = {})
{
    std::string text = "<keyword name='" + name + "'><description>" + mark + "</description><validSections>";
    for (const char* section : sections)
        text += "<section name='" + std::string(section) + "'/>";
    return text + "</validSections></keyword>\n";
}

std::string MarkOf(const IKeywordSyntax* syntax)
{
    return syntax ? syntax->GetDescription() : "none";
}

std::string MarksOf(const std::vector<const IKeywordSyntax*>& all)
{
    std::string text;
    for (const IKeywordSyntax* syntax : all)
        text += MarkOf(syntax) + " ";
    return text;
}

/// What the exception says, or "done", and in the next line what was printed on standard output.
std::string Load()
{
    KeywordSyntaxTable::Instance(true, false);
    testing::internal::CaptureStdout();
    const std::string exception = FailureOf([] { KeywordSyntaxTable::Instance(); });
    return exception + "\n" + testing::internal::GetCapturedStdout();
}

class Loads : public testing::Test {
protected:
    ~Loads() override { KeywordSyntaxTable::Instance(true, false); }

    static void ExpectFailure(const std::string& text) { EXPECT_EQ(Load(), text + "\n" + text + "\n"); }

    TemporaryDirectory directory_;
    const std::string root_ = directory_.Path().string();
    LogCapture log_;
};

} // namespace

TEST(SyntaxTable, LooksUpBySection)
{
    const LoadedTable table(Keyword("ONE", "1", {"GRID"}) + Keyword("TWO", "2a", {"SUMMARY"})
        + Keyword("TWO", "2b", {"SCHEDULE", "SUMMARY"}) + Keyword("W*", "w", {"EDIT"})
        + Keyword("WX", "wx", {"EDIT"}));
    const auto marks = [&](const char* name, SectionType::Enum section) {
        return MarksOf({table->Lookup(name, section, true), table->Lookup(name, section, false)});
    };
    EXPECT_EQ(marks("ONE", SectionType::GRID), "1 1 ");
    EXPECT_EQ(marks("ONE", SectionType::PROPS), "1 none ");
    EXPECT_EQ(marks("ONE", SectionType::None), "1 none ");
    EXPECT_EQ(marks("TWO", SectionType::SUMMARY), "2a 2a ");
    EXPECT_EQ(marks("TWO", SectionType::SCHEDULE), "2b 2b ");
    EXPECT_EQ(marks("TWO", SectionType::GRID), "none none ");
    EXPECT_EQ(marks("WY", SectionType::EDIT), "w w ");
    EXPECT_EQ(marks("WY", SectionType::GRID), "w none ");
    EXPECT_EQ(marks("one", SectionType::GRID), "none none ");
}

TEST(SyntaxTable, PrefersWhatIsNoSummaryVector)
{
    const LoadedTable table(Keyword("A", "vector", {"SUMMARY"}) + Keyword("A", "plain", {"SCHEDULE"})
        + Keyword("B", "first", {"SUMMARY", "GRID"}) + Keyword("B", "second", {"SUMMARY"})
        + Keyword("C", "alone", {"SUMMARY"}) + Keyword("W*", "w") + Keyword("WX", "wx"));
    const auto mark = [&](const char* name, bool wildcards) {
        return MarkOf(table->Lookup(name, wildcards));
    };
    EXPECT_EQ(mark("A", true), "plain");
    EXPECT_EQ(mark("B", true), "first") << "all are valid in SUMMARY";
    EXPECT_EQ(mark("C", true), "alone");
    EXPECT_EQ(mark("WY", true), "w");
    EXPECT_EQ(mark("WY", false), "none");
    EXPECT_EQ(mark("UNKNOWN", true), "none");
    EXPECT_EQ(MarksOf(table->LookupAll("A")), "vector plain ");
    EXPECT_EQ(MarksOf(table->LookupAll("WY")), "w ");
    EXPECT_EQ(MarksOf(table->LookupAll("UNKNOWN")), "");
}

TEST(SyntaxTable, HasTrustedKeywordsFirst)
{
    const LoadedTable table(
        Keyword("X", "main") + "<keyword name='X' id='X'><description>id</description></keyword>",
        Keyword("X", "trusted") + Keyword("T", "t"));
    EXPECT_EQ(MarksOf(table->LookupAll("X")), "trusted main id ");
    EXPECT_EQ(MarkOf(table->Lookup("X", SectionType::GRID, false)), "trusted");
    EXPECT_EQ(MarkOf(table->Lookup("T", true)), "t");
}

TEST(SyntaxTable, SharesASyntaxWithItsAliases)
{
    const LoadedTable table("<keyword name='X'><aliases><alias name='Y'/><alias "
                            "name='Z*'/></aliases></keyword><keyword name='Y'/>");
    const IKeywordSyntax* const x = table->Lookup("X", true);
    EXPECT_EQ(table->LookupAll("Y").front(), x);
    EXPECT_EQ(table->LookupAll("Y").size(), 2U);
    EXPECT_EQ(table->Lookup("ZEBRA", false), x);
    EXPECT_EQ(x->GetName(), "X");
}

TEST(SyntaxTable, HoldsTwentyThousandKeywords)
{
    constexpr int count = 20'000;
    const auto name = [](int number) { return std::string("K").append(std::to_string(7 * number)); };
    std::string main;
    for (int i = 0; i < count; ++i)
        main += Keyword(name(i), std::to_string(i), {"GRID"});
    const LoadedTable table(main);
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(MarkOf(table->Lookup(name(i), SectionType::GRID, false)), std::to_string(i));
    EXPECT_EQ(table->Lookup("K1", true), nullptr);
}

TEST_F(Loads, FindKeywordElementsAtAnyDepthBelowAnyRoot)
{
    const ScopedVariable main(mainVariable,
        directory_.Write("main.xml",
            "<keyword name='ROOT'><a><keyword name='A'/><b><keyword name='B'><x><keyword "
            "name='C'/></x></keyword></b></a><Keyword name='D'/></keyword>"));
    EXPECT_EQ(Load(), "done\n");
    for (const std::string name : {"A", "B", "C", "D", "ROOT"})
        EXPECT_EQ(KeywordSyntaxTable::Instance().LookupAll(name).size(), name < "D" ? 1U : 0U) << name;
}

TEST_F(Loads, StartAgainAfterTheTableWasDropped)
{
    const ScopedVariable main(mainVariable, directory_.Write("main.xml", Document(Keyword("X", "old"))));
    EXPECT_EQ(Load(), "done\n");
    KeywordSyntaxTable& table = KeywordSyntaxTable::Instance(false, true);
    EXPECT_EQ(MarkOf(table.Lookup("X", true)), "old");
    directory_.Write("main.xml", Document(Keyword("X", "new")));
    EXPECT_EQ(&KeywordSyntaxTable::Instance(), &table);
    EXPECT_EQ(MarkOf(table.Lookup("X", true)), "old") << "read once";
    KeywordSyntaxTable& dropped = KeywordSyntaxTable::Instance(true, false);
    EXPECT_EQ(dropped.Lookup("X", true), nullptr) << "not to be used, but harmless";
    EXPECT_EQ(Load(), "done\n");
    EXPECT_EQ(MarkOf(KeywordSyntaxTable::Instance().Lookup("X", true)), "new");
}

TEST_F(Loads, FailWithoutTheMainFile)
{
    const std::string text =
        "SyntaxLoader::LoadFromXMLFile: Can not load/find the specified XML syntax file ";
    const std::string good = directory_.Write("main.xml", Document("<keyword name='X'/>"));
    const std::string malformed = directory_.Write("malformed.xml", "<keywords><keyword name='X'/>");
    for (const std::string& path : {root_ + "/none.xml", root_, good + " ", "file://" + good, malformed}) {
        const ScopedVariable main(mainVariable, path);
        ExpectFailure(text + path);
    }
    const ScopedVariable main(mainVariable, good);
    EXPECT_EQ(Load(), "done\n") << "nothing of the failures stays";
}

TEST_F(Loads, FailWithoutTheTrustedDirectory)
{
    const std::string file = directory_.Write("trusted/x.XML", Document(""));
    const std::string path = root_ + "/trusted";
    for (const std::string& missing : {root_ + "/none", file, path + " "}) {
        const ScopedVariable trusted(trustedVariable, missing);
        ExpectFailure(
            "TrustedSyntaxLoader::LoadFromXMLFiles: TrustedSyntax directory " + missing + " does not exist.");
    }
    const ScopedVariable trusted(trustedVariable, path);
    directory_.Write("trusted/x.xml.bak", Document(""));
    directory_.Write("trusted/sub/x.xml", Document(""));
    ExpectFailure("TrustedSyntaxLoader::LoadFromXMLFiles: no XML files found in " + path);
}

TEST_F(Loads, TakeTheTrustedFilesThatCanBeRead)
{
    const ScopedVariable main(mainVariable, directory_.Write("main.xml", Document("<keyword name='M'/>")));
    const ScopedVariable trusted(trustedVariable, root_ + "/trusted");
    const std::string bad = directory_.Write("trusted/b.xml", "<keywords><keyword name='B'/>");
    EXPECT_EQ(Load(), "done\n");
    EXPECT_NE(KeywordSyntaxTable::Instance().Lookup("M", true), nullptr) << "all trusted files are bad";

    directory_.Write(
        "trusted/c.xml", "<any><keyword name='C'/><keyword name='M'><isHidden/></keyword></any>");
    directory_.Write("trusted/a.xml", "<keywords><keyword name='A'/></keywords>");
    directory_.Write("trusted/d.XML", "<keywords><keyword name='D'/></keywords>");
    EXPECT_EQ(Load(), "done\n");
    for (const std::string name : {"A", "B", "C", "D"})
        EXPECT_EQ(
            KeywordSyntaxTable::Instance().LookupAll(name).size(), name == "A" || name == "C" ? 1U : 0U);
    EXPECT_TRUE(KeywordSyntaxTable::Instance().LookupAll("M").front()->IsHidden()) << "the trusted one";
    EXPECT_EQ(log_.Lines().size(), 2U);
    EXPECT_EQ(log_.Lines().back().text.find(bad + ":1:30: "), 0U) << log_.Text();
}

TEST_F(Loads, AreTriedAgainAfterAFailure)
{
    {
        const ScopedVariable main(mainVariable, root_ + "/none.xml");
        EXPECT_NE(Load(), "done\n");
        testing::internal::CaptureStdout();
        EXPECT_THROW(KeywordSyntaxTable::Instance(), Service::Exception);
        EXPECT_NE(testing::internal::GetCapturedStdout(), "") << "each call tries the whole load";
    }
    EXPECT_NE(KeywordSyntaxTable::Instance().Lookup("GRID", true), nullptr);
}

TEST_F(Loads, TakeTheBuiltInDocumentsWithoutVariables)
{
    const ScopedVariable main(mainVariable, "");
    const ScopedVariable trusted(trustedVariable, "");
    EXPECT_EQ(Load() + log_.Text(), "done\n");
    KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();
    for (const char* name : {"RUNSPEC", "GRID", "EDIT", "PROPS", "REGIONS", "SOLUTION", "SUMMARY", "SCHEDULE",
             "OPTIMIZE", "INCLUDE", "END", "ENDINC", "SKIP", "SKIPCAR", "SKIPDUN", "ENDSKIP"})
        EXPECT_NE(table.Lookup(name, true), nullptr) << name;
    EXPECT_TRUE(table.Lookup("HOSTINFO", false)->IsHidden()) << "a trusted one";
}

// Retirement is for good, so each case has its own process.
class RetiredTableDeathTest : public testing::TestWithParam<bool> { };

TEST_P(RetiredTableDeathTest, IsNotMadeAgain)
{
    const auto check = [loaded = GetParam()] {
        if (loaded)
            KeywordSyntaxTable::Instance();
        else
            KeywordSyntaxTable::Instance(true, false);
        KeywordSyntaxTable::Instance(true);
        KeywordSyntaxTable::Instance(true, false);
        try {
            KeywordSyntaxTable::Instance();
            std::cerr << "made";
        } catch (const Service::Exception&) {
            std::cerr << "an exception of the library";
        } catch (const std::runtime_error& error) {
            std::cerr << error.what();
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0),
        "^Attempt to re-create KeywordSyntaxTable when already cleared$");
}

INSTANTIATE_TEST_SUITE_P(LoadedOrNot, RetiredTableDeathTest, testing::Bool());
