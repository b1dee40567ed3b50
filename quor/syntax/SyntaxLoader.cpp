#include "quor/syntax/internal/SyntaxLoader.h"

#include "quor/foundation/service/Environment.h"
#include "quor/syntax/internal/LoadFailure.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

xercesc::DOMDocument* SyntaxLoader::GetDocument()
{
    if (document_)
        return document_;
    const std::string path = Service::GetEnvVariable("QUOR_KEYWORD_SYNTAX_FILE");
    if (path.empty())
        LoadFromCompressedData();
    else
        LoadFromXMLFile(path.c_str());
    return document_;
}

void SyntaxLoader::LoadFromCompressedData()
{
    data_ = std::make_unique<Core::KeywordSyntax::KeywordSyntaxData>();
    document_ = data_->GetData();
    if (document_)
        return;
    data_.reset();
    FailLoad("SyntaxLoader::LoadFromCompressedData: no compressed Quor.xml data available");
}

void SyntaxLoader::LoadFromXMLFile(const char* path)
{
    if (!path)
        return;
    xmlDocument_ = std::make_unique<Service::XML::XMLDocument>();
    document_ = xmlDocument_->read(path);
    if (document_)
        return;
    xmlDocument_.reset();
    FailLoad(std::string("SyntaxLoader::LoadFromXMLFile: Can not load/find the specified XML syntax file ")
        + path);
}

} // namespace Veld::Quor::Core::Keywords
