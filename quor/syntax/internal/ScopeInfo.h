#pragma once

#include "quor/foundation/service/xml/DomForward.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordSyntax;

/// The keywords that end the scope which a keyword opens. They are looked up when first asked for, since the
/// table is still loading when this is read; that first call must not race with another.
class ScopeInfo {
public:
    /// Throws `KeywordException` for a child that is no end keyword.
    explicit ScopeInfo(const xercesc::DOMElement& element);

    /// In the order of the document; names that the table doesn't know are left out.
    const std::vector<const IKeywordSyntax*>& GetScopeKeywords() const;
    /// The end keyword that is marked as explicit, the last one if several are; null if the table has none.
    const IKeywordSyntax* GetScopeSyntax() const;

private:
    mutable std::vector<std::string> pendingNames_; // until they are looked up
    mutable std::unique_ptr<std::vector<const IKeywordSyntax*>> keywords_; // null until then
    mutable const IKeywordSyntax* syntax_ = nullptr; // null: not found yet
    std::string explicitName_;
};

} // namespace Veld::Quor::Core::Keywords
