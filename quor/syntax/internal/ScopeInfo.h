#pragma once

#include "quor/foundation/internal/Once.h"
#include "quor/metadata/TreeForward.h"

#include <atomic>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordSyntax;

/// The keywords that end the scope which a keyword opens. They are looked up when first asked for, since the
/// table is still loading when this is read. Safe from several threads.
class ScopeInfo {
public:
    /// Throws `KeywordException` for a child that is no end keyword.
    explicit ScopeInfo(const Service::XML::Internal::TreeElement& element);

    /// In the order of the document; names that the table doesn't know are left out.
    const std::vector<const IKeywordSyntax*>& GetScopeKeywords() const;
    /// The end keyword that is marked as explicit, the last one if several are; null if the table has none.
    const IKeywordSyntax* GetScopeSyntax() const;

private:
    std::vector<std::string> names_;
    mutable Once areKeywordsFound_;
    mutable std::vector<const IKeywordSyntax*> keywords_;
    mutable std::atomic<const IKeywordSyntax*> syntax_{nullptr}; // null: not found yet
    std::string explicitName_;
};

} // namespace Veld::Quor::Core::Keywords
