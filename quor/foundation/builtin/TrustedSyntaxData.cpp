#include "quor/foundation/builtin/TrustedSyntaxData.h"

#include "quor/foundation/builtin/internal/PackedDocument.h"
#include "quor/foundation/service/xml/XMLDocument.h"

namespace Veld::Quor::Core::KeywordSyntax {

TrustedSyntaxData::TrustedSyntaxData()
    : tree_(&Internal::trustedDocumentTree)
{
}

TrustedSyntaxData::~TrustedSyntaxData() = default;

xercesc::DOMDocument* TrustedSyntaxData::GetData()
{
    if (!document_)
        document_ = Internal::Unpack(Internal::trustedDocument, "built-in trusted document");
    return document_->GetDocument();
}

} // namespace Veld::Quor::Core::KeywordSyntax
