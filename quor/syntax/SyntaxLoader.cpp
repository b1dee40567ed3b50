#include "quor/syntax/internal/SyntaxLoader.h"

#include "quor/foundation/builtin/KeywordSyntaxData.h"
#include "quor/foundation/internal/TreeBuilder.h"
#include "quor/foundation/service/Environment.h"
#include "quor/syntax/internal/BuiltinTree.h"
#include "quor/syntax/internal/LoadFailure.h"

#include <string>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

DocumentTree SyntaxLoader::Load()
{
    const std::string path = file_.empty() ? Service::GetEnvVariable("QUOR_KEYWORD_SYNTAX_FILE") : file_;
    return path.empty() ? LoadFromCompressedData() : LoadFromXMLFile(path.c_str());
}

DocumentTree SyntaxLoader::LoadFromCompressedData()
{
    auto tree = BuiltinTree<Core::KeywordSyntax::KeywordSyntaxData>();
    if (!tree)
        FailLoad("SyntaxLoader::LoadFromCompressedData: no compressed Quor.xml data available");
    return std::move(*tree);
}

DocumentTree SyntaxLoader::LoadFromXMLFile(const char* path)
{
    if (!path)
        return {};
    TreeBuilder builder;
    if (!AddFile(path, builder))
        FailLoad(
            std::string("SyntaxLoader::LoadFromXMLFile: Can not load/find the specified XML syntax file ")
            + path);
    return builder.Take();
}

} // namespace Veld::Quor::Core::Keywords
