#include "quor/deck/internal/write/DataWriter.h"

#include "quor/data/Access.h"
#include "quor/data/KeywordDataFactory.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

struct Unwritable {
    const char* name;
    const char* value; ///< of NAME; null: none is given
    const char* refusal;
};

class UnwritableData : public testing::TestWithParam<Unwritable> { };

TEST_P(UnwritableData, AreRefused)
{
    const LoadedTable table(R"(<keyword name='RECORD'><data><record termination='SLASH'>
        <item name='NAME'><string/></item> <item name='COUNT'><integer/></item></record></data></keyword>)");
    const IKeywordSyntax& syntax = table.Get("RECORD");
    const auto data = KeywordDataFactory::Instance().Construct(syntax);
    Set(AsRecord(*data), "COUNT", 1);
    if (GetParam().value)
        Set(AsRecord(*data), "NAME", GetParam().value);
    DataPlans plans{Target()};
    const DeckFiles files;
    try {
        DataWriter writer(plans.Get(*syntax.GetDataMD()), nullptr, files);
        ADD_FAILURE() << "written: " << writer.Write("RECORD", *data, true);
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), GetParam().refusal);
    }
}

INSTANTIATE_TEST_SUITE_P(Values, UnwritableData,
    testing::Values(Unwritable{"NoValue", nullptr, "NAME: missing value; the item has no default"},
        Unwritable{"TwoLines", "P1\nP2", "can't write the text 'P1?P2': it contains a line break"},
        Unwritable{"BothKindsOfQuotes", "it's 6\"",
            "can't write the text 'it's 6\"': it contains both kinds of quotes"}),
    CaseName<Unwritable>);

} // namespace
