#include "quor/deck/Deck.h"
#include "quor/syntax/KeywordSyntaxTable.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using Veld::Quor::Core::Keywords::KeywordSyntaxTable;
using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

/// The reason why a document of rules is refused; empty if it isn't.
std::string RefusalOf(const std::string& rules)
{
    const TemporaryDirectory folder;
    const std::string path = folder.Write("r.xml", rules);
    try {
        const DeckLanguage language(KeywordSyntaxTable::Instance(), {path});
    } catch (const RuleError& error) {
        const std::string text = error.what();
        EXPECT_EQ(text.find(path), 0U) << text;
        return text.substr(path.size());
    }
    return "";
}

struct RefusalRow {
    const char* name;
    const char* rules;
    const char* reason;
};

class RuleDocuments : public testing::TestWithParam<RefusalRow> { };

TEST_P(RuleDocuments, AreRefusedWithTheReason)
{
    EXPECT_EQ(RefusalOf(GetParam().rules), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Mistakes, RuleDocuments,
    testing::Values(RefusalRow{"NoXML", "<rules>",
                        ":1:8: input ended before all started tags were ended; last tag started is 'rules'"},
        RefusalRow{"Element", "<rules><once keywords='START'/><nede/></rules>",
            ": element 2, <nede>: unknown rule; did you mean <need>?"},
        RefusalRow{"Attribute", "<rules><once keyword='START' keywords='START'/></rules>",
            ": element 1, <once>: unknown attribute 'keyword'; did you mean 'keywords'?"},
        RefusalRow{"MissingAttribute", "<rules><need in='GRID' what='X'/></rules>",
            ": element 1, <need>: missing attribute 'anyOf'"},
        RefusalRow{"MisspeltAttribute", "<rules><need anyof='TITLE' in='GRID' what='X'/></rules>",
            ": element 1, <need>: unknown attribute 'anyof'; did you mean 'anyOf'?"},
        RefusalRow{"Flag", "<rules><names kind='X' patterns='yes'/></rules>",
            ": element 1, <names>: attribute 'patterns' is 'yes'; expected 'true' or 'false'"},
        RefusalRow{"Child", "<rules><names kind='X'><refer items='WELL'/><defin/></names></rules>",
            ": element 1, <names>, element 2, <defin>: unknown element; expected <define> or <refer>"},
        RefusalRow{"Role", "<rules><role is='oil' keywords='OIL'/></rules>",
            ": element 1, <role>: unknown role 'oil'"},
        RefusalRow{"Number", "<rules><plausible keywords='NTG' least='0' greatest='one'/></rules>",
            ": element 1, <plausible>: attribute 'greatest' is 'one'; expected a number"},
        RefusalRow{"Range", "<rules><plausible keywords='NTG' least='2' greatest='1'/></rules>",
            ": element 1, <plausible>: attribute 'least' is 2, above 'greatest' 1"},
        RefusalRow{"Choice",
            "<rules><require keywords='WCONPROD' when='CONTROL=ORATE' items='ORAT'/></rules>",
            ": element 1, <require>: CONTROL has no choice 'ORATE'; did you mean 'ORAT'?"},
        RefusalRow{"ItemOfAChoice",
            "<rules><require keywords='WCONPROD' when='TYPE=GAS' items='ORAT'/></rules>",
            ": element 1, <require>: no keyword of the rule has item 'TYPE'"},
        RefusalRow{"Match",
            "<rules><match what='X'><refer keywords='WELOPEN' items='WELL I J K C1'/></match></rules>",
            ": element 1, <match>, element 1, <refer>: too many items; expected a name and at most three "
            "numbers"},
        RefusalRow{"Section", "<rules><index items='I' size='NX' sections='GIRD'/></rules>",
            ": element 1, <index>: unknown section 'GIRD'"},
        RefusalRow{"Entity", "<rules><names kind='X'><refer entity='Weel'/></names></rules>",
            ": element 1, <names>, element 1, <refer>: unknown kind of output vector 'Weel'"},
        RefusalRow{"Everything", "<rules><order/></rules>",
            ": element 1, <order>: no keywords and no items; expected 'keywords', 'items' or 'entity'"},
        RefusalRow{"Order", "<rules><order items='I1'/></rules>",
            ": element 1, <order>: attribute 'items' must have two names: the first and the last"},
        RefusalRow{"Keyword", "<rules><once keywords='STRAT'/></rules>",
            ": element 1, <once>: unknown keyword 'STRAT'; did you mean 'START'?"},
        RefusalRow{"Item", "<rules><index items='I' size='NXX'/></rules>",
            ": element 1, <index>: unknown item 'NXX'; did you mean 'NX'?"},
        RefusalRow{
            "NoSize", "<rules><index items='I'/></rules>", ": element 1, <index>: missing attribute 'size'"},
        RefusalRow{"Pattern", "<rules><once keywords='QQ*'/></rules>",
            ": element 1, <once>: no keyword matches 'QQ*'"},
        RefusalRow{"Kind", "<rules><count kind='wel' size='MAXWELLS' keyword='WELLDIMS'/></rules>",
            ": element 1, <count>: unknown kind of names 'wel'; did you mean 'well'?"},
        RefusalRow{"SizeByNoWord",
            "<rules><size name='N' keyword='ROCKOPTS' item='REGIONS' sizes='1'/></rules>",
            ": element 1, <size>: a size is chosen by 'item' and 'words', or by neither"},
        RefusalRow{"SizeWithoutTheKeyword", "<rules><size name='N' keyword='ROCKOPTS' sizes='3'/></rules>",
            ": element 1, <size>: attribute 'sizes' has the wrong number of words (expected 2, found 1)"},
        RefusalRow{"Severity", "<rules><once keywords='START' severity='bad'/></rules>",
            ": element 1, <once>: attribute 'severity' is 'bad'; expected 'error', 'warning' or 'note'"},
        RefusalRow{"Code", "<rules><once keywords='START' code='Ours 1'/></rules>",
            ": element 1, <once>: attribute 'code' is 'Ours 1'; expected lower-case letters, digits and "
            "hyphens"},
        RefusalRow{"Requirement", "<rules><require keywords='WCONPROD' when='THP'/></rules>",
            ": element 1, <require>: a record requires 'items' or 'present', one of both"}),
    CaseName<RefusalRow>);

TEST(RuleDocuments, OfTheLibraryNameWhatIsThere)
{
    for (const auto& file : std::filesystem::directory_iterator(QUOR_SOURCE_DIR "/language/rules"))
        EXPECT_NO_THROW(DeckLanguage(KeywordSyntaxTable::Instance(), {file.path().string()})) << file.path();
}

TEST(RuleDocuments, HaveAsManyCodesAsCommentsOfDecksMayName)
{
    std::string rules = "<rules>";
    for (int i = 0; i < 101; ++i)
        rules += "<once keywords='START' code='c" + std::to_string(i) + "'/>";
    EXPECT_EQ(RefusalOf(rules + "</rules>"),
        ": element 101, <once>: too many codes of documents of rules; expected at most 100");
}

/// What hosts show of a keyword: kind, what, item and text of a rule.
TEST(RuleDocuments, OfTheLibraryAreDescribed)
{
    constexpr const char* rows[][2] = {{"WELSPECS", "defines|well|WELL|WELL defines a name: well"},
        {"WELSPECS", "index|NX|I|I is at most NX"},
        {"WELSPECS", "members|MAXWGRP|GROUP|at most MAXWGRP of WELLDIMS wells for each GROUP"},
        {"WCONPROD", "refers-to|well|WELL|WELL refers to a name that is defined before it: well"},
        {"WCONPROD",
            "require|ORAT|CONTROL|if CONTROL is ORAT, ORAT is required, unless STATUS is SHUT or STATUS is "
            "STOP"},
        {"WCONPROD", "require|VFP|THP|if THP has a value, VFP is required"},
        {"WOPR", "refers-to|well||each name refers to a name that is defined: well"},
        {"COMPDAT", "distinct||WELL, I, J, K1, K2, CF|one record for the same WELL, I, J, K1, K2, CF"},
        {"MULTFLT", "distinct||FAULT|one record for the same FAULT"},
        {"WCONPROD",
            "distinct||WELL|one of WCONPROD, WCONHIST, WCONINJE, WCONINJH for the same WELL in a report "
            "step"},
        {"VFPINJ", "distinct||TABLE|one record for the same TABLE in a report step"},
        {"COMPDAT", "match|completion|K1|WELL, I, J, K1 define a completion"},
        {"WPIMULT", "match|completion|K|WELL, I, J, K refer to a completion that is defined"},
        {"BOX", "order|I2|I1|I1 is at most I2"}, {"GRUPTREE", "tree|group||builds a tree: group"},
        {"SATNUM", "region|NTSFUN||each number is at most NTSFUN, the number of saturation tables"},
        {"RPR", "index|NTFIP||each number is at most NTFIP"},
        {"SWOF", "length|NSSFUN||each table has at most NSSFUN of TABDIMS rows"},
        {"START", "once|||a deck has it once"},
        {"LAB", "exclusive|system of units||a deck has one system of units: METRIC, FIELD, LAB or PVT-M"},
        {"PVDO",
            "need|properties of oil||PROPS needs properties of oil: PVTO, PVDO, PVCDO, PVCO or PVTSOL, with "
            "OIL"},
        {"RESTART", "open|||it may define names that the deck does not show"}};
    const DeckLanguage language;
    for (const auto& [keyword, expected] : rows) {
        std::string rules;
        for (const KeywordRule& rule :
            language.GetRules(*KeywordSyntaxTable::Instance().Lookup(keyword, true)))
            rules += rule.kind + '|' + rule.what + '|' + rule.item + '|' + rule.text + '\n';
        EXPECT_NE(('\n' + rules).find(std::string("\n") + expected + '\n'), std::string::npos) << rules;
    }
}

/// The author of a rule has its own code, severity and text; a comment of a deck may name the code.
TEST(RuleDocuments, HaveTheirOwnVoice)
{
    const TemporaryDirectory folder;
    const DeckLanguage language(KeywordSyntaxTable::Instance(), {folder.Write("r.xml", R"(<rules>
      <exclusive keywords='IMPE? AIM' what='solution' code='our-solver' severity='note' text='use one solver'/>
      <names kind='well'><refer keywords='VAPPARS' items='WELL' severity='warning'/></names>
    </rules>)")});
    const auto findingsOf = [&](const char* deck) {
        return Dump(Deck::ReadText(deck, language, {}, "d").GetFindings(), "none");
    };
    EXPECT_EQ(findingsOf("RUNSPEC\nIMPES\nAIM\n"),
        "d:3:1: note: use one solver [our-solver] | remove one of them (d:2:1: IMPES is here)");
    EXPECT_EQ(findingsOf("RUNSPEC\nIMPES\nAIM -- quor: off our-solver\n"), "");
    EXPECT_EQ(findingsOf("RUNSPEC\nIMPES -- quor: off our-solvr\n"),
        "d:2:20: warning: unknown finding code 'our-solvr' [bad-suppression] | did you mean our-solver?");
}

/// A keyword without the end of a run has single numbers, which may be any.
TEST(RuleDocuments, OfRunsAreAboutSingleNumbersToo)
{
    const TemporaryDirectory folder;
    const DeckLanguage language(KeywordSyntaxTable::Instance(), {folder.Write("r.xml", R"(<rules>
      <distinct keywords='COMPDAT' items='SATNUM' last='LAST'/></rules>)")});
    EXPECT_EQ(Dump(Deck::ReadText(R"(SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
/
COMPDAT
 P1 1 1 1 1 OPEN -3 /
 P1 1 1 2 2 OPEN -3 /
 P1 1 1 3 3 OPEN 64 /
 P1 1 1 4 4 OPEN 64 /
 P1 1 1 5 5 OPEN 1* /
 P1 1 1 6 6 OPEN 1* /
/
)",
                       language, {}, "d")
                       .GetFindings(),
                  "none"),
        "d:7:18: warning: COMPDAT: repeated record for SATNUM -3 [repeated-record] | correct the record, or "
        "remove one of them (d:6:2: the first is here)\nd:9:18: warning: COMPDAT: repeated record for SATNUM "
        "64 [repeated-record] | correct the record, or remove one of them (d:8:2: the first is here)");
}

TEST(RuleDocuments, OfAHostAreCheckedToo)
{
    const TemporaryDirectory folder;
    const DeckLanguage language(KeywordSyntaxTable::Instance(), {folder.Write("r.xml", R"(<rules>
      <exclusive keywords='IMPES AIM' what='solution'/>
      <names kind='group'><refer keywords='WLIST' items='WELLS'/></names>
      <match what='head' always='1'>
        <define keywords='WELSPECS' items='WELL I J'/>
        <refer keywords='COMPDAT' items='WELL I J'/>
      </match></rules>)")});
    EXPECT_EQ(Dump(Deck::ReadText(R"(RUNSPEC
IMPES
AIM
METRIC
LAB
SCHEDULE
WELSPECS
 P1 G 2 1 1* OIL /
/
WLIST
 '*L' NEW P2 P1 /
/
COMPDAT
 P1 1 1* 1 1 /
 P1 1 2 1 1 /
/
)",
                       language, {}, "d")
                       .GetFindings(),
                  "none"),
        "d:3:1: error: AIM contradicts IMPES; expected one solution [conflicting-keywords] | remove one of "
        "them "
        "(d:2:1: IMPES is here)\n"
        "d:5:1: error: LAB contradicts METRIC; expected one system of units [conflicting-keywords] | remove "
        "one of "
        "them (d:4:1: METRIC is here)\n"
        "d:11:11: error: WLIST: undefined well 'P2' [undefined-name] | did you mean P1?\n"
        "d:15:5: error: COMPDAT: 'P1' has no head at I 1, J 2 [undefined-name] | correct the numbers, or "
        "define the head with WELSPECS");
    EXPECT_THROW(DeckLanguage(KeywordSyntaxTable::Instance(), {"no/such.xml"}), RuleError);
}

} // namespace
