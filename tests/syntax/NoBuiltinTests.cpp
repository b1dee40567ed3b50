#include "tests/metadata/MetadataText.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <string>

// This host's own library of built-in documents, which has none but for one test.
namespace Veld::Quor::Core::KeywordSyntax {

static xercesc::DOMDocument* documentOfTheHost = nullptr;

KeywordSyntaxData::KeywordSyntaxData() = default;
KeywordSyntaxData::~KeywordSyntaxData() = default;

xercesc::DOMDocument* KeywordSyntaxData::GetData()
{
    return documentOfTheHost;
}

TrustedSyntaxData::TrustedSyntaxData() = default;
TrustedSyntaxData::~TrustedSyntaxData() = default;

xercesc::DOMDocument* TrustedSyntaxData::GetData()
{
    return documentOfTheHost;
}

} // namespace Veld::Quor::Core::KeywordSyntax

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Tests;

namespace {

void ExpectFailure(const std::string& text)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(FailureOf([] { Keywords::KeywordSyntaxTable::Instance(); }), text);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), text + "\n");
}

} // namespace

TEST(NoBuiltin, FailsForTheTrustedDocumentFirst)
{
    ExpectFailure(
        "TrustedSyntaxLoader::LoadFromCompressedData: no compressed TrustedSyntax xml data available");
}

TEST(NoBuiltin, FailsForTheMainDocument)
{
    const TemporaryDirectory directory;
    directory.Write("trusted.xml", Document("<keyword name='T'/>"));
    const ScopedVariable trusted(trustedVariable, directory.Path().string());
    ExpectFailure("SyntaxLoader::LoadFromCompressedData: no compressed Quor.xml data available");
}

TEST(NoBuiltin, DoesWithFiles)
{
    const LoadedTable table("<keyword name='M'/>", "<keyword name='T'/>");
    EXPECT_EQ(table.Get("M").GetName() + table.Get("T").GetName(), "MT");
}

TEST(NoBuiltin, TakesADocumentThatTheHostHas)
{
    const std::string text = Document("<keyword name='H'/>");
    Service::XML::XMLDocument document;
    KeywordSyntax::documentOfTheHost = document.readMemory(text.data(), text.size(), "host");
    Keywords::KeywordSyntaxTable::Instance(true, false);
    Keywords::KeywordSyntaxTable& table = Keywords::KeywordSyntaxTable::Instance();
    EXPECT_EQ(table.LookupAll("H").size(), 2U) << "as the trusted and as the main document";
    Keywords::KeywordSyntaxTable::Instance(true, false);
    KeywordSyntax::documentOfTheHost = nullptr;
}
