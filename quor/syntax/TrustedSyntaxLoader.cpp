#include "quor/syntax/internal/TrustedSyntaxLoader.h"

#include "quor/foundation/builtin/TrustedSyntaxData.h"
#include "quor/foundation/internal/TreeBuilder.h"
#include "quor/foundation/service/Directory.h"
#include "quor/foundation/service/Environment.h"
#include "quor/foundation/service/FileName.h"
#include "quor/syntax/internal/BuiltinTree.h"
#include "quor/syntax/internal/LoadFailure.h"

#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

DocumentTree TrustedSyntaxLoader::Load()
{
    const std::string directory = Service::GetEnvVariable("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    return directory.empty() ? LoadFromCompressedData() : LoadFromXMLFiles(directory.c_str());
}

DocumentTree TrustedSyntaxLoader::LoadFromCompressedData()
{
    auto tree = BuiltinTree<Core::KeywordSyntax::TrustedSyntaxData>();
    if (!tree)
        FailLoad(
            "TrustedSyntaxLoader::LoadFromCompressedData: no compressed TrustedSyntax xml data available");
    return std::move(*tree);
}

DocumentTree TrustedSyntaxLoader::LoadFromXMLFiles(const char* directory)
{
    if (!directory)
        return {};
    const Service::Directory files(directory);
    const std::string reader = "TrustedSyntaxLoader::LoadFromXMLFiles: ";
    if (!files.Exists())
        FailLoad(reader + "TrustedSyntax directory " + directory + " does not exist.");
    const std::vector<std::string> names = files.Find("\\.xml$", true, false, true, true, false);
    if (names.empty())
        FailLoad(reader + "no XML files found in " + directory);

    TreeBuilder merged;
    merged.Open(u"trustedsyntaxtable", false);
    for (const std::string& name : names) {
        Service::FileName path(name);
        path = files;
        AddFile(path.GetFullName().c_str(), merged);
    }
    merged.Close();
    return merged.Take();
}

} // namespace Veld::Quor::Core::Keywords
