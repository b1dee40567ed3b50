#include "quor/syntax/internal/SyntaxLoader.h"

#include "quor/foundation/builtin/KeywordSyntaxData.h"
#include "quor/foundation/internal/TreeBuilder.h"
#include "quor/foundation/service/Environment.h"
#include "quor/syntax/internal/BuiltinTree.h"
#include "quor/syntax/internal/LoadFailure.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

const DocumentTree& SyntaxLoader::GetTree()
{
    if (tree_)
        return *tree_;
    const std::string path = Service::GetEnvVariable("QUOR_KEYWORD_SYNTAX_FILE");
    if (path.empty())
        LoadFromCompressedData();
    else
        LoadFromXMLFile(path.c_str());
    return *tree_;
}

void SyntaxLoader::LoadFromCompressedData()
{
    tree_ = BuiltinTree<Core::KeywordSyntax::KeywordSyntaxData>();
    if (!tree_)
        FailLoad("SyntaxLoader::LoadFromCompressedData: no compressed Quor.xml data available");
}

void SyntaxLoader::LoadFromXMLFile(const char* path)
{
    if (!path)
        return;
    TreeBuilder builder;
    if (!AddFile(path, builder))
        FailLoad(
            std::string("SyntaxLoader::LoadFromXMLFile: Can not load/find the specified XML syntax file ")
            + path);
    tree_ = builder.Take();
}

} // namespace Veld::Quor::Core::Keywords
