#include "quor/syntax/internal/ScopeInfo.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/metadata/internal/ContainerReader.h"
#include "quor/syntax/KeywordSyntaxTable.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;
using namespace Service::XML::Internal;
using xercesc::DOMElement;

ScopeInfo::ScopeInfo(const DOMElement& element)
{
    for (const DOMElement& child : ChildElements(element)) {
        if (!Is(child, Tags::EndKeyword()))
            FailUnhandled("ScopeInfo::ScopeInfo(): unhandled element type: ", child);
        pendingNames_.push_back(NameOf(child));
        if (IsFlagged(child, Tags::Explicit()))
            explicitName_ = pendingNames_.back();
    }
}

const std::vector<const IKeywordSyntax*>& ScopeInfo::GetScopeKeywords() const
{
    if (keywords_)
        return *keywords_;
    auto keywords = std::make_unique<std::vector<const IKeywordSyntax*>>();
    const KeywordSyntaxTable& table = KeywordSyntaxTable::Instance(false, true);
    for (const std::string& name : pendingNames_) {
        if (const IKeywordSyntax* const syntax = table.Lookup(name, true))
            keywords->push_back(syntax);
    }
    keywords_ = std::move(keywords);
    pendingNames_ = {};
    return *keywords_;
}

const IKeywordSyntax* ScopeInfo::GetScopeSyntax() const
{
    if (!syntax_)
        syntax_ = KeywordSyntaxTable::Instance(false, true).Lookup(explicitName_, true);
    return syntax_;
}

} // namespace Veld::Quor::Core::Keywords
