#include "tests/data/DataText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <utility>

using namespace Veld::Quor::Tests;

using Service::Time;

namespace {

constexpr long long day = 86400 * Time::TicksPerSecond;
const Time start(2024, 1, 1, 0, 0, 0, 0);
const Time current(2024, 2, 1, 0, 0, 0, 0);

/// Data of the built-in documents, which the utilities know for the rest of the process.
std::unique_ptr<IKeywordData> Of(const std::string& keyword, const std::string& text = {})
{
    static const KeywordSyntaxTable& table = []() -> KeywordSyntaxTable& {
        ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
        ::unsetenv("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
        return KeywordSyntaxTable::Instance();
    }();
    return Make(*table.Lookup(keyword, true), text);
}

struct TextKeyword {
    const char* name;
    const Service::Optional<std::string>& (*get)(const IKeywordData*);
    void (*set)(IKeywordData*, const std::string&);
    const char* failure;
};

} // namespace

TEST(TextKeywords, AreReadAndWrittenAsThemselvesAlone)
{
    const auto other = Of("START");
    for (const TextKeyword& row :
        {TextKeyword{"INCLUDE", &DataAccessUtils::GetINCLUDEFileName, &DataAccessUtils::SetINCLUDEFileName,
             "Keywords::DataAccessUtils: expecting an INCLUDE data"},
            {"MESSAGE", &DataAccessUtils::GetMESSAGEText, &DataAccessUtils::SetMESSAGEText,
                "Keywords::DataAccessUtils: expecting an MESSAGE data"},
            {"GDFILE", &DataAccessUtils::GetGDFILEName, &DataAccessUtils::SetGDFILEName,
                "Keywords::DataAccessUtils: expecting an GDFILE data"},
            {"TOLGRID", &DataAccessUtils::GetTOLGRIDName, &DataAccessUtils::SetTOLGRIDName,
                "Keywords::DataAccessUtils: expecting an TOLGRID data"}}) {
        const auto data = Of(row.name);
        EXPECT_FALSE(row.get(data.get()));
        row.set(data.get(), "");
        EXPECT_EQ(row.get(data.get()).Value(), "") << "given, and empty";
        row.set(data.get(), "some text");
        EXPECT_EQ(row.get(data.get()).Value(), "some text");
        EXPECT_EQ(&row.get(data.get()), ChildrenOf(*data).front().place);
        for (IKeywordData* const bad : {static_cast<IKeywordData*>(nullptr), other.get()}) {
            EXPECT_EQ(FailureOf([&] { row.get(bad); }), row.failure);
            EXPECT_EQ(FailureOf([&] { row.set(bad, "x"); }), row.failure);
        }
    }
    EXPECT_EQ(Dump(*other), "(- - - -)");
}

TEST(Dates, AreUndefinedIfInvalid)
{
    for (const auto& row : Table(R"(
(29 'FEB' 2024 -)            | 2024-02-29 00:00:00.000
(1 'JAN' 2024 -)             | 2024-01-01 00:00:00.000
(3 'MAR' 2024 -)             | 2024-03-03 00:00:00.000
(1 'APR' 2024 -)             | 2024-04-01 00:00:00.000
(1 'MAY' 2024 -)             | 2024-05-01 00:00:00.000
(1 'JUN' 2024 -)             | 2024-06-01 00:00:00.000
(1 'JLY' 2024 -)             | 2024-07-01 00:00:00.000
(1 'JULY' 2024 -)            | 2024-07-01 00:00:00.000
(1 'AUG' 2024 -)             | 2024-08-01 00:00:00.000
(1 'SEP' 2024 -)             | 2024-09-01 00:00:00.000
(1 'OCT' 2024 -)             | 2024-10-01 00:00:00.000
(1 'NOV' 2024 -)             | 2024-11-01 00:00:00.000
(31 'DEC' 2024 -)            | 2024-12-31 00:00:00.000
(1 'jul' 2024 -)             |
(1 'JU' 2024 -)              |
(1 '"JAN"' 2024 -)           |
(1 - 2024 -)                 |
(- 'JAN' 2024 -)             |
(1 'JAN' - -)                |
(30 'FEB' 2024 -)            |
(1 'JAN' 2024 '12:30:15')    | 2024-01-01 12:30:15.000
(1 'JAN' 2024 '12:30:15.5')  | 2024-01-01 12:30:15.500
(1 'JAN' 2024 '12:30:15.25') | 2024-01-01 12:30:15.250
(1 'JAN' 2024 '12:30:15.1234') | 2024-01-01 12:30:15.123
(1 'JAN' 2024 '12:30:15.')   | 2024-01-01 12:30:15.000
(1 'JAN' 2024 ' 12:30:15 ')  | 2024-01-01 12:30:15.000
(1 'JAN' 2024 '  ')          | 2024-01-01 00:00:00.000
(1 'JAN' 2024 'noon')        |
(1 'JAN' 2024 '25:00:00')    |
(31 'JUN' 2024 '12:30:15')   |)")) {
        const Time time = DataAccessUtils::GetTimeFromSTART(Of("START", row[0]).get());
        EXPECT_EQ(time.GetAsString(), row[1]) << row[0];
        EXPECT_EQ(time == Time::MinTime(), row[1].empty());
        const auto dates = Of("DATES", "[(3 'MAR' 2020 -) " + row[0] + "]");
        const std::vector<Time> times = DataAccessUtils::GetTimesFromDATES(dates.get());
        ASSERT_EQ(times.size(), time.IsDef() ? 2U : 1U) << row[0];
        EXPECT_EQ(times.back(), time.IsDef() ? time : times.front());
        EXPECT_EQ(
            DataAccessUtils::AdvanceTime(start, current, 1, dates.get()), time.IsDef() ? time : current);
    }
    const auto other = Of("TSTEP");
    for (IKeywordData* const data : {static_cast<IKeywordData*>(nullptr), other.get()}) {
        EXPECT_EQ(FailureOf([&] { DataAccessUtils::GetTimeFromSTART(data); }),
            "Keywords::DataAccessUtils: expecting START data");
        EXPECT_EQ(FailureOf([&] { DataAccessUtils::GetTimesFromDATES(data); }),
            "Keywords::DataAccessUtils: expecting DATES data");
    }
}

TEST(TimeAdvance, AddsStepsCutToTicks)
{
    EXPECT_EQ(DataAccessUtils::AdvanceTime(start, current, day, nullptr), current);
    for (const auto& row : Table(R"(
DATES   | [(1 'APR' 2030 -) (1 'MAR' 2024 -)] | now   | 2024-03-01 00:00:00.000
DATES   | []                                  | now   | 2024-02-01 00:00:00.000
TSTEP   | [1 0.5]                             | now   | 2024-02-02 12:00:00.000
TSTEP   | [-1]                                | now   | 2024-01-31 00:00:00.000
TSTEP   | [nan 1]                             | now   | 2024-02-02 00:00:00.000
TSTEP   | [1]                                 | never | 2024-01-02 00:00:00.000
TSTEP   | []                                  | never | 2024-01-01 00:00:00.000
TIME    | [5 2]                               | now   | 2024-01-03 00:00:00.000
TIME    | [2]                                 | never | 2024-01-03 00:00:00.000
TIME    | []                                  | now   | 2024-02-01 00:00:00.000
MESSAGE | ('text')                            | now   | 2024-02-01 00:00:00.000)")) {
        const Time from = row[2] == "now" ? current : Time();
        const Time time = DataAccessUtils::AdvanceTime(start, from, day, Of(row[0], row[1]).get());
        EXPECT_EQ(time.GetAsString(), row[3]) << row[0] << row[1];
    }
    const auto ticks = [](const char* keyword, const char* text, long long ticksPerUnit) {
        return DataAccessUtils::AdvanceTime(start, current, ticksPerUnit, Of(keyword, text).get());
    };
    EXPECT_EQ(ticks("TSTEP", "[0.1 0.1]", 15), current + 2) << "each step is cut to whole ticks";
    EXPECT_EQ(ticks("TSTEP", "[-0.1 -0.1]", 15), current + -2);
    EXPECT_EQ(ticks("TIME", "[0.19]", 10), start + 1);
    EXPECT_FALSE(DataAccessUtils::Advance(Time(), day, 1).IsDef());
    for (const char* const steps : {"[1e300]", "[9223372036854775808]"})
        EXPECT_LT(current, ticks("TSTEP", steps, 1)) << steps;
    for (const char* const steps : {"[-1e300]", "[inf]", "[1e300 -1e300 nan]"})
        EXPECT_TRUE(ticks("TSTEP", steps, day).IsDef()) << steps;
}

TEST(PathAliases, AreResolvedOrLeftOpen)
{
    for (const auto& row : Table(R"(
              | a/$B/c    | a/$B/c    | open
A=x           | A/f       | A/f       |
A=x           | $A/f      | x/f       |
A=x           | $A\f      | x\f       |
A=x           | $A        | x         |
A=x           | $AB/$A    | $AB/x     | open
A=x           | $A.f      | $A.f      | open
A=x           | p/$A/f    | p/x/f     |
A=x           | p$A/f     | px/f      |
A=x           | $A/$A/f   | x/x/f     |
A=x           | $A$A      | $Ax       | open
A=x           | $a/f      | $a/f      | open
A=x AB=y      | $AB/$A    | y/x       |
A=x B=$A/b    | $B/f      | x/b/f     |
A=$B/a B=x    | $A/f      | $B/a/f    | open
A=$A/x        | $A/f      | $A/x/f    | open
A=x$A         | $A/f/$A   | x$A/f/x$A | open
A=$A/$A       | $A        | $A/$A     | open
A=$B/x B=y/$A | $A/f      | $B/x/f    | open
A=            | $A/$A     | /         |
A=            | $A        |           |
A=x $A=y      | $A/f      | y/f       |
$A=y A=x      | $A/f      | x/f       |
=x $=y        | $/f       | $/f       | open
/=x$          | $//       | xx$       | open
$$=x          | $$/f      | x/f       |)")) {
        PathAliases aliases;
        std::istringstream words(row[0]);
        for (std::string word; words >> word;)
            aliases.setAlias(word.substr(0, word.find('=')), word.substr(word.find('=') + 1));
        std::string resolved = "earlier";
        EXPECT_EQ(aliases.resolvePathAliases(row[1], resolved), row[3] == "open") << row[0] << ' ' << row[1];
        EXPECT_EQ(resolved, row[2]) << row[0] << ' ' << row[1];
        std::string inPlace = row[1];
        aliases.resolvePathAliases(inPlace, inPlace);
        EXPECT_EQ(inPlace, row[2]);
    }
}

TEST(PathAliases, AreTheFirstTwoItemsOfDataAndAreCopied)
{
    const Made made("[(s s i)]", "[('A' 'x' 1) ('$B' 'y' -) (- 'z' -) ('C' - -) ('A' 'w' -)]");
    PathAliases aliases;
    DataAccessUtils::AddPathAliases(made.data.get(), aliases);
    PathAliases copy = aliases;
    copy.setAlias("A", "v");
    std::string text;
    EXPECT_FALSE(aliases.resolvePathAliases("$A/$B/$C/f", text));
    EXPECT_EQ(text, "w/y//f");
    aliases = std::move(copy);
    EXPECT_FALSE(aliases.resolvePathAliases("$A/$B", text));
    EXPECT_EQ(text, "v/y");
}
