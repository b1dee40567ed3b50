#include "quor/Keywords.h"

#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Service;
using namespace Veld::Quor::Tests;

using Strings = std::vector<std::string>;

TEST(ServiceStrings, AreTrimmedAndComparedInAsciiAlone)
{
    EXPECT_TRUE(AllBlanks(""));
    EXPECT_TRUE(AllBlanks(" \t\n"));
    EXPECT_FALSE(AllBlanks(" x "));
    EXPECT_TRUE(NoCaseStringEqual("aBc", "AbC"));
    EXPECT_FALSE(NoCaseStringEqual("abc", "ab"));

    std::string text = "  \tab c\n ";
    std::string left = text;
    StringTrimBlank(left, true, false);
    EXPECT_EQ(left, "ab c\n ");
    StringTrimBlank(text, true, true);
    EXPECT_EQ(text, "ab c");
    std::string blank = "   ";
    StringTrimBlank(blank, true, true);
    EXPECT_EQ(blank, "");

    std::string upper = "straße é x1";
    StringToUpper(upper);
    EXPECT_EQ(upper, "STRAßE é X1") << "bytes beyond ASCII stay as they are";
}

TEST(ServiceStrings, AreSplitWithAndWithoutEmptyParts)
{
    Strings parts = {"old"};
    StringSplit("2024-01-01  12:00 ", parts, " ", false);
    EXPECT_EQ(parts, (Strings{"2024-01-01", "12:00"}));
    StringSplit("a, b", parts, ", ", true);
    EXPECT_EQ(parts, (Strings{"a", "", "b"}));
    StringSplit("", parts, " ", false);
    EXPECT_EQ(parts, Strings{});
}

TEST(ServiceFiles, AreFoundByPatternInByteOrder)
{
    const TemporaryDirectory directory;
    for (const char* name : {"b.xml", "a.xml", "c.XML", "d.xml.bak", "sub/e.xml"})
        directory.Write(name, "x");
    std::filesystem::create_directory(directory.Path() / "f.xml");
    const Directory files(directory.Path().string());
    ASSERT_TRUE(files.Exists());
    EXPECT_EQ(files.Find("\\.xml$", true, false, true, true, false), (Strings{"a.xml", "b.xml"}));
    EXPECT_EQ(files.Find("\\.xml$", true, false, true, false, false), (Strings{"a.xml", "b.xml", "c.XML"}));
    EXPECT_EQ(files.Find("\\.xml$", false, true, true, true, false), (Strings{"f.xml"}));
    EXPECT_EQ(files.Find("\\.xml$", true, false, true, true, true), (Strings{"a.xml", "b.xml", "sub/e.xml"}));
    std::filesystem::create_symlink("nowhere", directory.Path() / "g");
    EXPECT_EQ(files.GetNames(), (Strings{"a.xml", "b.xml", "c.XML", "d.xml.bak", "f.xml", "g", "sub"}));
    EXPECT_EQ(files.GetNames(2).size(), 2U);

    const Directory missing((directory.Path() / "none").string());
    EXPECT_FALSE(missing.Exists());
    EXPECT_EQ(missing.Find(".*", true, true, true, true, true), Strings{});
    EXPECT_EQ(missing.GetNames(), Strings{});
    EXPECT_FALSE(Directory((directory.Path() / "a.xml").string()).Exists());
}

TEST(ServiceFiles, KeepTheirNameInANewDirectory)
{
    FileName name("x.xml");
    EXPECT_EQ(name.GetFullName(), "x.xml");
    name = Directory("some/where");
    EXPECT_EQ(name.GetFullName(), "some/where/x.xml");
    EXPECT_EQ(FileName("a/b/c.xml").GetPath(), "a/b");
}

TEST(ServiceLog, GoesToTheLastHandlerAlone)
{
    const LogCapture outer;
    {
        const LogCapture inner;
        Log::SendLogMessage("one", MessageSeverity::Info);
        EXPECT_EQ(inner.Text(), "one\n");
    }
    AssertFailure("what", nullptr);
    AssertFailure("what", "where");
    ASSERT_EQ(outer.Text(), "what\nwhat (where)\n");
    EXPECT_EQ(static_cast<int>(outer.Lines()[0].severity), 3);

    std::string heard;
    const AssertHandler earlier =
        SetAssertHandler([&](const char* message, const char*) { heard = message; });
    AssertFailure("heard", nullptr);
    SetAssertHandler(earlier);
    EXPECT_EQ(heard, "heard");
    EXPECT_EQ(outer.Lines().size(), 2U);
}

TEST(ServiceLog, WithoutAHandlerGoesToStandardError)
{
    const LogHandler earlier = Log::SetHandler({});
    testing::internal::CaptureStderr();
    for (const auto severity : {MessageSeverity::Debug, MessageSeverity::Info, MessageSeverity::Warning,
             MessageSeverity::Error, MessageSeverity::Fatal})
        Log::SendLogMessage("it", severity);
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(), "debug: it\ninfo: it\nwarning: it\nerror: it\nfatal: it\n");
    Log::SetHandler(earlier);
}

TEST(ServiceLog, CapsWarningsThatDifferInDigitsAlone)
{
    const LogCapture log;
    MessageCapper& capper = *MessageCapper::instance();
    capper.Reset();
    capper.SetLimit(2);
    for (int i = 0; i < 5; ++i)
        capper.logW("value " + std::to_string(i) + " is odd");
    capper.logW("another");
    EXPECT_EQ(log.Text(), "value 0 is odd\nvalue 1 is odd\nanother\n");
    EXPECT_EQ(static_cast<int>(log.Lines()[0].severity), 2);
    capper.Reset();
    capper.logW("value 9 is odd");
    capper.SetLimit(-1);
    for (int i = 0; i < 5; ++i)
        capper.logW("another");
    capper.SetLimit(0);
    capper.logW("another");
    EXPECT_EQ(log.Lines().size(), 9U);
    capper.SetLimit(MessageCapper::DefaultLimit);
    capper.Reset();
}

TEST(MatchPolicy, IsStrictUntilSet)
{
    EXPECT_FALSE(UseLaxMatch());
    SetUseLaxMatch(true);
    EXPECT_TRUE(UseLaxMatch());
    SetUseLaxMatch(false);
}
