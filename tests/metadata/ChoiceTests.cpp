#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

/// "ALPHA ALTO|ALT BETA|~OLD" as a choice element: words, their aliases after bars, hidden ones with a
/// tilde.
std::string Choices(const std::string& words)
{
    std::string xml;
    std::istringstream text(words);
    for (std::string word; text >> word;) {
        std::istringstream names(word);
        std::getline(names, word, '|');
        xml += "<value string='" + word + "'><aliases>";
        for (std::string alias; std::getline(names, alias, '|');)
            xml += alias[0] == '~' ? "<alias name='" + alias.substr(1) + "'><isHiddenAlias/></alias>"
                                   : "<alias name='" + alias + "'/>";
        xml += "</aliases></value>";
    }
    return Indented("<choice><values>" + xml + "</values></choice>");
}

/// The index, and after it what was logged, or the message that says why there is none.
std::string Match(const IKeywordChoiceMD& choice, const std::string& text, bool lax = false)
{
    Service::SetUseLaxMatch(lax);
    Service::MessageCapper::instance()->Reset();
    Service::MessageCapper::instance()->SetLimit(-1);
    const LogCapture log;
    std::string message = "untouched";
    const int index = choice.GetIndex(text, message);
    std::string result = std::to_string(index) + (message == "untouched" ? "" : ": " + message);
    for (const LogCapture::Line& line : log.Lines()) {
        EXPECT_EQ(line.severity, Service::MessageSeverity::Warning);
        result += ": " + line.text;
    }
    EXPECT_EQ(choice.GetIndex(text), index);
    Service::MessageCapper::instance()->SetLimit(Service::MessageCapper::DefaultLimit);
    Service::SetUseLaxMatch(false);
    return result;
}

/// "1 Alias ALT warned", or "None".
std::string Describe(const ChoiceMatch& match)
{
    static const char* const kinds[] = {"None", "Word", "Alias", "Abbreviation", "Deprecated", "Lax"};
    const std::string kind = kinds[static_cast<int>(match.kind)];
    return (match.index < 0 ? kind : std::to_string(match.index) + ' ' + kind)
        + (match.alias.empty() ? "" : ' ' + match.alias) + (match.needsWarning ? " warned" : "");
}

/// A choice of a host that knows no `Match`: "YES" by its first letter.
class HostChoice : public KeywordChoiceMDImpl {
public:
    HostChoice() { AddChoice("YES", ValidityMDImpl(true), UnsupportedByMDImpl(false)); }
    using KeywordChoiceMDImpl::GetIndex;
    int GetIndex(const std::string& text) const override { return text.starts_with('Y') ? 0 : -1; }
    ChoiceMatch Match(std::string_view text) const override
    {
        // As if it were not overridden. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return IKeywordChoiceMD::Match(text);
    }
};

/// "words / text", what `GetIndex` returns and logs, and what `Match` returns. Names of rows begin with "Lax"
/// where that is the policy.
class ChoiceValue : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(ChoiceValue, IsFoundAndOnlyGetIndexWarns)
{
    const auto& [name, row, warning, match, options] = GetParam();
    const std::size_t bar = row.find(" / ");
    const auto choice = Read<KeywordChoiceMDImpl>(Choices(row.substr(0, bar)));
    const std::string text = row.substr(bar + 3);
    const bool lax = name.starts_with("Lax");
    EXPECT_EQ(Match(*choice, text, lax), warning);
    const LogCapture log;
    Service::SetUseLaxMatch(lax);
    EXPECT_EQ(Describe(choice->Match(text)), match);
    Service::SetUseLaxMatch(false);
    EXPECT_EQ(log.Text(), "");
}

INSTANTIATE_TEST_SUITE_P(Words, ChoiceValue, testing::ValuesIn(Rows(R"(
AnyCase: ALPHA ALTO|ALT BETA|~OLD / alpha => 0 => 0 Word
WordBeforeItsLongerSister: ABC AB / ab => 1 => 1 Word
ShortestCandidate: ALPHA ALTO|ALT BETA|~OLD / AL => 1: AL has matched option ALTO; please use ALTO to avoid ambiguity. => 1 Abbreviation ALT warned
Abbreviation: ALPHA ALTO|ALT BETA|~OLD / alp => 0: ALP has matched option ALPHA; please use ALPHA to avoid ambiguity. => 0 Abbreviation warned
Alias: ALPHA ALTO|ALT BETA|~OLD / alt => 1: ALT has matched option ALTO; please use ALTO to avoid ambiguity. => 1 Alias ALT warned
HiddenAlias: ALPHA ALTO|ALT BETA|~OLD / OLD => 2: OLD is a deprecated synonym for BETA and may be removed in a future release; please use BETA. => 2 Deprecated OLD warned
StartOfHiddenAlias: ALPHA ALTO|ALT BETA|~OLD / o => 2: OLD is a deprecated synonym for BETA and may be removed in a future release; please use BETA. => 2 Deprecated OLD warned
None: ALPHA ALTO|ALT BETA|~OLD / ZZ => -1: Must be one of ALPHA, ALTO or BETA => None
BlanksAreNotTrimmed: ALPHA ALTO|ALT BETA|~OLD /  ALPHA => -1: Must be one of ALPHA, ALTO or BETA => None
Blank: ALPHA ALTO|ALT BETA|~OLD /   => -1 => None
FirstAmongEquals: ABX ABY / AB => 0: AB has matched option ABX; please use ABX to avoid ambiguity. => 0 Abbreviation warned
WordInLowerCaseIsFolded: one / oNe => 0 => 0 Word
AliasInLowerCaseIsNot: ONE|uno TWO / uno => -1: Must be one of ONE or TWO => None
WordShorterThanAPlainAlias: LONG|ABCDEF ABCD / ABC => 1: ABC has matched option ABCD; please use ABCD to avoid ambiguity. => 1 Abbreviation warned
HiddenAliasOfAnotherChoice: LONG|~ABCDEF ABCD / ABC => 1: ABCDEF is a deprecated synonym for ABCD and may be removed in a future release; please use ABCD. => 1 Deprecated ABCDEF warned
EvenForTheWordItself: LONG|~ABCDEF ABCD / ABCD => 1: ABCDEF is a deprecated synonym for ABCD and may be removed in a future release; please use ABCD. => 1 Deprecated ABCDEF warned
PlainAliasTakesTheMarkBack: ONE|~XYZZ TWO|XYZ / XY => 1: XY has matched option TWO; please use TWO to avoid ambiguity. => 1 Abbreviation XYZ warned
AliasAsLongAsTheWordIsSilent: RATE|FLOW / flow => 0 => 0 Alias FLOW
AliasOfAnotherLengthIsNot: RATE|FLO / flo => 0: FLO has matched option RATE; please use RATE to avoid ambiguity. => 0 Alias FLO warned
AbbreviationAsLongAsTheWordIsSilent: AB|CDE / cd => 0 => 0 Abbreviation CDE
TailDiffers: ALPHA ALTO|ALT BETA|~OLD / BEXX => -1: Must be one of ALPHA, ALTO or BETA => None
LaxTailDiffers: ALPHA ALTO|ALT BETA|~OLD / BEXX => 2: BEXX has matched option BETA; please use BETA to avoid ambiguity. => 2 Lax warned
LaxShortestOfSeveral: ALPHA ALTO|ALT BETA|~OLD / ALX => 1: ALX has matched option ALTO; please use ALTO to avoid ambiguity. => 1 Lax warned
LaxFirstAmongEquals: ABX ABY / ABZ => 0: ABZ has matched option ABX; please use ABX to avoid ambiguity. => 0 Lax warned
LaxShortOnesDropOut: AB ABC / ABCD => 1: ABCD has matched option ABC; please use ABC to avoid ambiguity. => 1 Lax warned
LaxShortOnesStayIfAllDropOut: ABC AB / ABX => 1: ABX has matched option AB; please use AB to avoid ambiguity. => 1 Lax warned
LaxAliasesTakeNoPart: ALPHA ALTO|ALT BETA|~OLD / OLX => -1: Must be one of ALPHA, ALTO or BETA => None
LaxLeavesAliases: ALPHA ALTO|ALT BETA|~OLD / OLD => 2: OLD is a deprecated synonym for BETA and may be removed in a future release; please use BETA. => 2 Deprecated OLD warned
LaxFirstCharacterStartsNone: ONLY / XNLY => -1: Must be one of ONLY => None
)")),
    CaseName<Row>);

TEST(Choices, OfAHostMatchByTheirOwnIndex)
{
    const HostChoice host;
    EXPECT_EQ(Describe(host.Match("yes")), "None");
    EXPECT_EQ(Describe(host.Match("YES")), "0 Word");
    EXPECT_EQ(Describe(host.Match("YEAH")), "0 Abbreviation warned");
}

TEST(Choices, BlankTextMeansTheBlankChoice)
{
    const auto choice = Read<KeywordChoiceMDImpl>(
        "<choice><values><value string='A'/><value string=' '/><value/></values></choice>");
    EXPECT_EQ(Match(*choice, "") + Match(*choice, "  \t", true), "11");
    EXPECT_EQ(choice->GetChoice(2), "");
    EXPECT_EQ(Describe(choice->Match(" \t ")), "1 Word");
    EXPECT_EQ(Match(KeywordChoiceMDImpl(), "X"), "-1: Must be one of ");
}

TEST(Choices, AreAddedByCode)
{
    ValidityMDImpl sedgeOnly(false);
    sedgeOnly.Set(SimulatorType::Sedge, SimulatorModeType::BlackOil, true);
    KeywordChoiceMDImpl choice;
    Service::SetUseLaxMatch(true); // no matter: a word is new unless it is there
    choice.AddChoice("one", sedgeOnly, UnsupportedByMDImpl(false));
    choice.AddChoice("ONE", ValidityMDImpl(true), UnsupportedByMDImpl(true));
    choice.AddChoice("on", ValidityMDImpl(true), UnsupportedByMDImpl(true));
    Service::SetUseLaxMatch(false);
    EXPECT_EQ(Dump(choice), "choice{ONE valid(Sedge/B), ON unsupported(everywhere)}");

    KeywordChoiceMDImpl::ChoiceMD again;
    again.text = "ONE";
    again.aliases.ReadXML(ParsedElement("<aliases> <alias name='LONGALIAS'/></aliases>"));
    choice.AddChoice(std::move(again));
    EXPECT_EQ(Match(choice, "one"), "0");
    EXPECT_EQ(Match(choice, "longa"), "2: LONGA has matched option ONE; please use ONE to avoid ambiguity.");
}

TEST(Choices, WarnOfADefaultOnceForEachEntryWhenItIsRead)
{
    Service::MessageCapper::instance()->Reset();
    const LogCapture log;
    Read<KeywordChoiceMDImpl>(
        "<choice><values><value string='BETA'><aliases> <alias name='OLD'> "
        "<isHiddenAlias/></alias></aliases></value></values><default type='specified' val='OLD'/></choice>");
    const std::string line =
        "OLD is a deprecated synonym for BETA and may be removed in a future release; please use BETA.\n";
    EXPECT_EQ(log.Text(), line + line + line) << "for none in particular, and for each of two simulators";
}
