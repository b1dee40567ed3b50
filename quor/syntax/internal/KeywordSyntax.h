#pragma once

#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/internal/DocumentTree.h"
#include "quor/foundation/internal/Once.h"
#include "quor/metadata/IKeywordDataMDInternal.h"
#include "quor/metadata/TreeForward.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/internal/CellPropertyInfo.h"
#include "quor/syntax/internal/ScopeInfo.h"
#include "quor/syntax/internal/SummaryMnemonicInfo.h"
#include "quor/syntax/internal/SyntaxValidity.h"

#include <atomic>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The one implementation: read from a keyword element when the table loads, and the same from then on, but
/// for what `GetPrecedents` works out at its first call, and the metadata of a built-in keyword, which are
/// read at the first `GetDataMD`. Both are safe from several threads.
class KeywordSyntax final : public IKeywordSyntax {
public:
    /// Keeps no pointer to `element` unless its tree lasts as the process does: such a tree has no mistakes,
    /// and few of its keywords are in a deck. Throws `KeywordException` with `name` and ": " before what a
    /// reader found wrong.
    KeywordSyntax(const std::string& name, const Service::XML::Internal::TreeElement& element);

    const std::string& GetName() const override { return name_; }
    const std::vector<std::string>& GetAliases() const override;
    bool IsGeneric() const override { return isGeneric_; }
    bool IsHidden(const std::string& alias) const override;
    bool IsHidden() const override { return isHidden_; }
    bool IsWildcard() const override { return !name_.empty() && name_.back() == '*'; }
    std::string GetDescription() const override { return description_.value_or(std::string()); }
    std::string GetDocumentationName() const override;
    KeywordDeckRole::Enum GetDeckRole() const override { return deckRole_; }
    std::vector<SimulatorType::Enum> GetValidSimulators(const std::string& alias) const override;
    std::vector<SimulatorType::Enum> GetValidSimulators() const override;
    bool IsValidSimulator(SimulatorType::Enum simulator, const std::string& alias) const override;
    bool IsValidSimulator(SimulatorType::Enum simulator) const override;
    bool IsValid(
        SectionType::Enum section, SimulatorType::Enum simulator, const std::string& alias) const override;
    bool IsValid(SectionType::Enum section, SimulatorType::Enum simulator) const override;
    std::vector<SectionType::Enum> GetValidSections() const override { return validity_.GetValidSections(); }
    SectionType::Enum GetFirstValidSection() const override { return validity_.GetFirstValidSection(); }
    bool HasScope() const override { return scope_ != nullptr; }
    const std::vector<const IKeywordSyntax*>& GetScopeKeywords() const override;
    const IKeywordSyntax* GetScopeSyntax() const override;
    const ISummaryMnemonicInfo* GetSummaryMnemonicInfo() const override { return summaryMnemonic_.get(); }
    const ICellPropertyInfo* GetCellPropertyInfo() const override { return cellProperty_.get(); }
    const IKeywordDataMD* GetDataMD() const override
    {
        if (unread_)
            reading_.Run([this] { dataMD_ = ReadDataMD(unread_); });
        return dataMD_ ? &dataMD_->MD() : nullptr;
    }
    bool HasIdentifiers() const override { return identifierCount_ > 0; }
    int GetIdentifierCount() const override { return identifierCount_; }
    bool HasPrecedents() const override { return !precedents_.empty(); }
    const std::set<std::string>& GetPrecedents(SectionType::Enum section) const override;

    /// The cube that answers for the spelling: the alias's own if it has one, else the keyword's.
    const SyntaxValidity& ValidityOf(const std::string& spelling) const;

private:
    struct Aliases {
        std::vector<std::string> names;
        std::vector<bool> hidden; // parallel to `names`
        std::vector<std::unique_ptr<SyntaxValidity>> validities; // parallel to `names`; null: the keyword's
    };

    void ReadXML(const Service::XML::Internal::TreeElement& element);
    void CreateDataMD(const Service::XML::Internal::TreeElement& element);
    std::unique_ptr<IKeywordDataMDInternal> ReadDataMD(
        const Service::XML::Internal::TreeElement& typeElement) const;
    void ExpandPrecedents(SectionType::Enum section) const;
    void ReadPrecedents(const Service::XML::Internal::TreeElement& element);
    void ReadAliases(
        const std::vector<Service::XML::Internal::TreeElement>& elements, const ValidityElements& ofKeyword);
    void ReadAlias(const Service::XML::Internal::TreeElement& element, const ValidityElements& ofKeyword);
    /// Position in the aliases; none for the keyword's own name and for an unknown text.
    std::optional<std::size_t> FindAlias(const std::string& spelling) const;

    std::string name_;
    std::unique_ptr<Aliases> aliases_; // null: none
    mutable std::unique_ptr<IKeywordDataMDInternal> dataMD_; // null: the keyword carries nothing
    Service::XML::Internal::TreeElement unread_; // what `dataMD_` is read of when asked for
    mutable Once reading_;
    std::unique_ptr<ScopeInfo> scope_; // null, as the next two: the document has no such element
    std::unique_ptr<SummaryMnemonicInfo> summaryMnemonic_;
    std::unique_ptr<CellPropertyInfo> cellProperty_;
    int identifierCount_ = 0;
    KeywordDeckRole::Enum deckRole_;
    SyntaxValidity validity_;
    bool isGeneric_ = false;
    bool isHidden_ = false;
    mutable bool arePrecedentsExpanding_ = false; // under the lock of `ExpandPrecedents`
    mutable std::atomic<bool> arePrecedentsExpanded_{false};
    std::optional<std::string> documentation_;
    std::optional<std::string> description_;
    std::set<std::string> precedents_; // those of the document
    mutable std::set<std::string> allPrecedents_; // with theirs
};

} // namespace Veld::Quor::Core::Keywords
