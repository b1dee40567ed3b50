#include "quor/syntax/internal/ScopeInfo.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/metadata/internal/ContainerReader.h"
#include "quor/syntax/KeywordSyntaxTable.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

ScopeInfo::ScopeInfo(const TreeElement& element)
{
    for (const TreeElement child : ChildElements(element)) {
        if (!child.Is(Tag::EndKeyword))
            FailUnhandled("ScopeInfo::ScopeInfo(): unhandled element type: ", child);
        names_.push_back(NameOf(child));
        if (IsFlagged(child, Tag::Explicit))
            explicitName_ = names_.back();
    }
}

const std::vector<const IKeywordSyntax*>& ScopeInfo::GetScopeKeywords() const
{
    areKeywordsFound_.Run([this] {
        const KeywordSyntaxTable& table = KeywordSyntaxTable::Instance(false, true);
        std::vector<const IKeywordSyntax*> keywords;
        for (const std::string& name : names_) {
            if (const IKeywordSyntax* const syntax = table.Lookup(name, true))
                keywords.push_back(syntax);
        }
        keywords_ = std::move(keywords);
    });
    return keywords_;
}

const IKeywordSyntax* ScopeInfo::GetScopeSyntax() const
{
    const IKeywordSyntax* syntax = syntax_.load(std::memory_order_acquire);
    if (!syntax) { // each thread finds the same
        syntax = KeywordSyntaxTable::Instance(false, true).Lookup(explicitName_, true);
        syntax_.store(syntax, std::memory_order_release);
    }
    return syntax;
}

} // namespace Veld::Quor::Core::Keywords
