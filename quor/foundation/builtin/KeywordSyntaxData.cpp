#include "quor/foundation/builtin/KeywordSyntaxData.h"

#include "quor/foundation/builtin/internal/PackedDocument.h"
#include "quor/foundation/service/xml/XMLDocument.h"

namespace Veld::Quor::Core::KeywordSyntax {

KeywordSyntaxData::KeywordSyntaxData()
    : tree_(&Internal::mainDocumentTree)
{
}

KeywordSyntaxData::~KeywordSyntaxData() = default;

xercesc::DOMDocument* KeywordSyntaxData::GetData()
{
    if (!document_)
        document_ = Internal::Unpack(Internal::mainDocument, "built-in main document");
    return document_->GetDocument();
}

} // namespace Veld::Quor::Core::KeywordSyntax
