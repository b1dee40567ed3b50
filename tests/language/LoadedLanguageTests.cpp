#include "tests/metadata/MetadataText.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

/// A line for each keyword of the language that the variables name.
std::vector<std::string> LoadLanguage()
{
    KeywordSyntaxTable::Instance(true, false);
    std::vector<std::string> lines;
    KeywordSyntaxEnumerator keywords = KeywordSyntaxTable::Instance().KeywordsEnumerator();
    while (keywords.NextWithHidden()) {
        const auto& [name, syntax] = *keywords.Current();
        std::string line = *name + " \"" + syntax->GetDescription() + "\"";
        for (const SectionType::Enum section : syntax->GetValidSections())
            line.append(" ").append(SectionType::ToString(section));
        for (const SimulatorType::Enum simulator : syntax->GetValidSimulators())
            line.append(" ").append(SimulatorType::ToString(simulator));
        if (const ISummaryMnemonicInfo* const info = syntax->GetSummaryMnemonicInfo())
            line.append(" ").append(
                SummaryEntity::ToString(info->GetEntity().ValueOr(SummaryEntity::General)));
        if (syntax->GetDataMD())
            line.append(" ").append(Dump(*syntax->GetDataMD()));
        lines.push_back(line);
    }
    KeywordSyntaxTable::Instance(true, false);
    return lines;
}

/// The first line that differs; empty if none does.
std::string FirstDifference(const std::vector<std::string>& left, const std::vector<std::string>& right)
{
    const auto [one, other] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return (one == left.end() ? "" : *one) + (other == right.end() ? "" : "\n" + *other);
}

const std::string mainFile = QUOR_MAIN_DOCUMENT;
const std::string trustedDirectory = QUOR_SOURCE_DIR "/language/trusted";

} // namespace

TEST(LoadedLanguage, IsTheSameFromFilesAndFromTheBinary)
{
    const LogCapture log;
    const std::vector<std::string> builtIn = LoadLanguage();
    EXPECT_GT(builtIn.size(), 1000U);
    {
        const ScopedVariable main(mainVariable, mainFile);
        EXPECT_EQ(FirstDifference(builtIn, LoadLanguage()), "");
    }
    const ScopedVariable trusted(trustedVariable, trustedDirectory);
    EXPECT_EQ(FirstDifference(builtIn, LoadLanguage()), "");
    const ScopedVariable main(mainVariable, mainFile);
    EXPECT_EQ(FirstDifference(builtIn, LoadLanguage()), "");
    EXPECT_EQ(log.Text(), "");
}

TEST(LoadedLanguage, DiffersForAnotherDocument)
{
    const TemporaryDirectory directory;
    const std::vector<std::string> builtIn = LoadLanguage();
    const ScopedVariable main(mainVariable, directory.Write("main.xml", Document("<keyword name='X'/>")));
    EXPECT_NE(FirstDifference(builtIn, LoadLanguage()), "");
}
