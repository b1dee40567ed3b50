#include "quor/syntax/internal/TrustedSyntaxLoader.h"

#include "quor/foundation/service/Directory.h"
#include "quor/foundation/service/Environment.h"
#include "quor/foundation/service/FileName.h"
#include "quor/syntax/internal/LoadFailure.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

xercesc::DOMDocument* TrustedSyntaxLoader::GetDocument()
{
    if (document_)
        return document_;
    const std::string directory = Service::GetEnvVariable("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    if (directory.empty())
        LoadFromCompressedData();
    else
        LoadFromXMLFiles(directory.c_str());
    return document_;
}

void TrustedSyntaxLoader::LoadFromCompressedData()
{
    data_ = std::make_unique<Core::KeywordSyntax::TrustedSyntaxData>();
    document_ = data_->GetData();
    if (document_)
        return;
    data_.reset();
    FailLoad("TrustedSyntaxLoader::LoadFromCompressedData: no compressed TrustedSyntax xml data available");
}

void TrustedSyntaxLoader::LoadFromXMLFiles(const char* directory)
{
    if (!directory)
        return;
    const Service::Directory files(directory);
    const std::string reader = "TrustedSyntaxLoader::LoadFromXMLFiles: ";
    if (!files.Exists())
        FailLoad(reader + "TrustedSyntax directory " + directory + " does not exist.");
    const std::vector<std::string> names = files.Find("\\.xml$", true, false, true, true, false);
    if (names.empty())
        FailLoad(reader + "no XML files found in " + directory);

    auto merged = std::make_unique<Service::XML::XMLDocument>("trustedsyntaxtable");
    xercesc::DOMDocument* const document = merged->GetDocument();
    for (const std::string& name : names) {
        Service::FileName path(name);
        path = files;
        Service::XML::XMLDocument file;
        xercesc::DOMDocument* const part = file.read(path.GetFullName().c_str());
        if (part && part->getDocumentElement())
            document->getDocumentElement()->appendChild(
                document->importNode(part->getDocumentElement(), true));
    }
    xmlDocument_ = std::move(merged);
    document_ = document;
}

} // namespace Veld::Quor::Core::Keywords
