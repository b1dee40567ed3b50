#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SmallStack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

using Texts = std::vector<std::string>;

std::string KeywordsNamed(const Texts& names)
{
    std::string text;
    for (const std::string& name : names)
        text += KeywordElement(name);
    return text;
}

/// What is still to come: each name, and after a colon the keyword if it has another name.
std::string Rest(KeywordSyntaxEnumerator& enumerator, bool withHidden = false)
{
    std::string text;
    while (withHidden ? enumerator.NextWithHidden() : enumerator.Next()) {
        const auto& [name, syntax] = *enumerator.Current();
        text += *name + (syntax->GetName() == *name ? "" : ":" + syntax->GetName()) + " ";
    }
    return text;
}

std::string Order(const std::string& main, bool withHidden = false)
{
    const LoadedTable table(main);
    KeywordSyntaxEnumerator enumerator = table->KeywordsEnumerator();
    return Rest(enumerator, withHidden);
}

/// A separate look-up table; what is stored under a name has that name.
class NameTable {
public:
    explicit NameTable(const Texts& names)
        : keywords_(KeywordsNamed(names))
    {
        std::map<std::string, const IKeywordSyntax*> byName;
        for (KeywordSyntaxEnumerator all = keywords_->KeywordsEnumerator(); all.Next();)
            byName[*all.Current()->first] = all.Current()->second;
        for (const std::string& name : names)
            table_.AddSyntax(name, {std::shared_ptr<void>(), byName.at(name)});
    }

    /// The stored names that `name` finds, with blanks between; empty if it finds none. The table of
    /// keywords, which has the same names, must find the first of them.
    std::string Find(const std::string& name, bool wildcards) const
    {
        std::string found;
        for (const auto& syntax : table_.Lookup(name, wildcards))
            found += (found.empty() ? "" : " ") + syntax->GetName();
        const IKeywordSyntax* const first = keywords_->Lookup(name, wildcards);
        EXPECT_EQ(first ? first->GetName() : "", found.substr(0, found.find(' '))) << name;
        return found;
    }

    const KeywordSyntaxLookupTable& Table() const { return table_; }

private:
    LogCapture log_; // takes the reports on long names
    LoadedTable keywords_;
    KeywordSyntaxLookupTable table_;
};

/// "stored names/query", and what it finds with wildcards and, after the bar, without.
class LookupTable : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(LookupTable, Finds)
{
    const std::size_t slash = GetParam().text.find('/');
    std::istringstream names(GetParam().text.substr(0, slash));
    const NameTable table(Texts(std::istream_iterator<std::string>(names), {}));
    const std::string query = GetParam().text.substr(slash + 1);
    EXPECT_EQ(table.Find(query, true) + "|" + table.Find(query, false), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Names, LookupTable, testing::ValuesIn(Rows(R"(
InAnEmptyTable: /A => |
NotAnotherCase: ABCD/abcd => |
AnInnerRowThatWasAdded: ABCD AB/AB => AB|AB
NoEmptyName: AB/ => |
MoreThanEight: ABCDEFGHIJ/ABCDEFGHIJ => ABCDEFGHIJ|ABCDEFGHIJ
ATailsAlways: XY*/XYZ => XY*|XY*
ATailsForItsPrefix: XY*/XY => XY*|XY*
ItsOwnText: XY*/XY* => XY*|XY*
ARowsPrefix: AB* ABC/AB => AB*|AB*
ARowsIfAsked: AB* ABC/ABX => AB*|
ARowsBehindAnExactOne: AB* ABC/ABCD => AB*|
BeyondAPrefixThatIsStored: AB* AB/ABX => AB*|
TheLongest: A* AB*/ABX => AB*|AB*
TheLongestForItsPrefix: A* AB*/AB => AB*|AB*
TheShorterBehindADeadEnd: A* ABCE/ABCD => A*|
TheShorterWithinATail: A* ABCE/ABC => A*|
ThroughAnInnerRow: A* ABCD ABCE/ABC => A*|
AtTheRoot: * AB/XYZ => *|
AtTheRootForNothing: * AB/ => *|
TwiceInOrder: AB* AB*/ABX => AB* AB*|AB* AB*
OneWithin: A*B/AXY => A*B|A*B
TwoWithin: A*B A*C/AX => |
OneWithinBesideOthers: A*B AC AD*/ADX => AD*|AD*
LongerThanTheName: ABCDEFGHI*/ABCDEFGH => |
WithoutTheSecondCharacter: ABC*/A => |
)")),
    CaseName<Row>);

TEST(LookupTables, FindTheLongestWildcardOfRandomNames)
{
    std::mt19937 random(20240601);
    const auto name = [&](std::size_t longest) {
        std::string text(1 + random() % longest, ' ');
        std::generate(text.begin(), text.end(), [&] { return "ABC"[random() % 3]; });
        return text;
    };
    for (int round = 0; round < 30; ++round) {
        Texts names;
        std::map<std::string, std::string> model;
        for (int i = 0; i < 40; ++i) {
            names.push_back(name(round % 2 ? 7 : 4) + (random() % 3 ? "" : "*"));
            std::string& found = model[names.back()];
            found += (found.empty() ? "" : " ") + names.back();
        }
        const NameTable table(names);
        for (int i = 0; i < 400; ++i) {
            const std::string query = name(8);
            auto expected = model.find(query);
            for (std::size_t length = query.size(); expected == model.end() && length > 0; --length)
                expected = model.find(query.substr(0, length) + "*");
            EXPECT_EQ(table.Find(query, true), expected == model.end() ? "" : expected->second) << query;
        }
        for (const auto& [stored, found] : model)
            EXPECT_EQ(table.Find(stored, false), found);
    }
}

TEST(LookupTables, ReportWhatIsTooLongAndStoreIt)
{
    std::string reports;
    const auto earlier = Service::SetAssertHandler([&](const char* message, const char* detail) {
        reports += message + std::string(detail ? "+\n" : "\n");
    });
    KeywordSyntaxLookupTable table;
    for (const char* name : {"ABCDEFGH", "BCDEFGHIJ", "BCDEFGHIK", "BCXXXXXXXX"})
        table.AddSyntax(name, nullptr);
    Service::SetAssertHandler(earlier);
    EXPECT_EQ(reports, "Keyword 'CDEFGHIJ' has invalid length = 9\n")
        << "what leaves the tree after a common start is measured from there";
    EXPECT_EQ(table.Lookup("BCDEFGHIJ", false).size(), 1U);

    const LogCapture log;
    table.AddSyntax("CDEFGHIJKL", nullptr);
    EXPECT_EQ(log.Text(), "Keyword 'DEFGHIJKL' has invalid length = 10\n");
}

TEST(LookupTables, FindTheSameWithAndWithoutACopy)
{
    const NameTable table({"", "AB", "AB"});
    EXPECT_EQ(*table.Table().FindSyntaxes("AB", false), table.Table().Lookup("AB", false));
    EXPECT_EQ(table.Table().FindSyntaxes("A", true), nullptr);
    EXPECT_EQ(table.Table().Lookup("", false).size(), 1U) << "an empty name may be stored";
}

TEST(LookupTables, EndWithoutStackHoweverDeep)
{
    std::size_t found = 0;
    OnSmallStack([&found] {
        auto table = std::make_unique<KeywordSyntaxLookupTable>();
        std::string name;
        for (int i = 0; i < 5'000; ++i)
            table->AddSyntax(name += 'A', nullptr);
        found = table->Lookup(name, true).size();
        table.reset();
    });
    EXPECT_EQ(found, 1U);
}

TEST(Enumerator, GoesLevelByLevelAndTheLastRowsFirst)
{
    EXPECT_EQ(Order(KeywordsNamed({"AAX", "AAY", "ABC"})), "ABC AAX AAY ");
    EXPECT_EQ(Order(KeywordsNamed({"A", "B", "BX", "BY", "AX", "AY", "BXZ"})), "A B BX BY BXZ AX AY ");
    EXPECT_EQ(Order(KeywordsNamed({"\xC3\xA9", "B", "A"})), "\xC3\xA9 A B ")
        << "a byte above 127 counts as negative";
    EXPECT_EQ(Order(""), "");
    EXPECT_EQ(Order(KeywordsNamed({"AB*", "ABC", "X*"})), "X* AB* ABC ");
}

TEST(Enumerator, VisitsEachSyntaxUnderEachName)
{
    EXPECT_EQ(Order("<keyword name='X'><aliases><alias name='A'/><alias "
                    "name='Z'/></aliases></keyword><keyword name='A'/><keyword name='X' id='X2'/>"),
        "A:X A X X Z:X ");
}

TEST(Enumerator, PassesOverWhatIsHiddenUnderItsName)
{
    const std::string main =
        "<keyword name='H'><isHidden/></keyword><keyword name='I'><isHidden/><aliases><alias "
        "name='J'/></aliases></keyword><keyword name='K'><aliases><alias "
        "name='L'><isHiddenAlias/></alias></aliases></keyword><keyword name='H'/>";
    EXPECT_EQ(Order(main), "H J:I K ");
    EXPECT_EQ(Order(main, true), "H H I J:I K L:K ");
}

TEST(Enumerator, StartsAgainAfterTheEndAndAfterReset)
{
    const LoadedTable table(KeywordsNamed({"AAX", "AAY", "ABC"}));
    KeywordSyntaxEnumerator enumerator = table->KeywordsEnumerator();
    EXPECT_EQ(enumerator.Current()->second, nullptr);
    EXPECT_EQ(Rest(enumerator), "ABC AAX AAY ");
    EXPECT_EQ(enumerator.Current()->second->GetName(), "AAY") << "the end leaves the last entry";
    ASSERT_TRUE(enumerator.Next() && enumerator.Next());
    enumerator.Reset();
    EXPECT_EQ(Rest(enumerator), "ABC AAX AAY ");
}

TEST(Enumerator, CopiesContinueIndependently)
{
    const LoadedTable table(KeywordsNamed({"AX", "AY", "BX", "BY"}));
    KeywordSyntaxEnumerator enumerator = table->KeywordsEnumerator();
    ASSERT_TRUE(enumerator.Next());
    KeywordSyntaxEnumerator copy = enumerator;
    EXPECT_EQ(Rest(enumerator), "BY AX AY ");
    EXPECT_EQ(*copy.Current()->first, "BX");
    ASSERT_TRUE(copy.Next());
    enumerator = copy;
    EXPECT_EQ(Rest(copy), "AX AY ");
    EXPECT_EQ(Rest(enumerator), "AX AY ");
}
