#pragma once

#include "quor/Keywords.h"

#include "tests/metadata/MetadataText.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Tests {

using namespace Core;
using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

/// A keyword outside of any table, with metadata from a short text:
///
/// | text       | node                                                                         |
/// |------------|------------------------------------------------------------------------------|
/// | `b c i l r s a w` | boolean, choice, integer, line, real, string, assignment, raw         |
/// | `(i r! s)` | record, its second item an identifier; `0` is an item without metadata |
/// | `[i]`      | list; `[?i]`: its elements can be defaulted; `[]`: it has no item            |
/// | `{A B/C D*}` | map of assignments, B and C being two keys of one, D* a wildcard           |
///
/// An empty text gives a keyword that carries nothing.
class Keyword : public IKeywordSyntax {
public:
    explicit Keyword(const std::string& shape);
    ~Keyword() override;

    const IKeywordDataMD* GetDataMD() const override { return md_ ? &md_->MD() : nullptr; }
    int GetIdentifierCount() const override { return identifierCount; }

    const std::string& GetName() const override { return name_; }
    const std::vector<std::string>& GetAliases() const override { return none_; }
    bool IsGeneric() const override { return false; }
    bool IsHidden(const std::string&) const override { return false; }
    bool IsHidden() const override { return false; }
    bool IsWildcard() const override { return false; }
    std::string GetDescription() const override { return {}; }
    std::string GetDocumentationName() const override { return name_; }
    KeywordDeckRole::Enum GetDeckRole() const override { return {}; }
    Simulators GetValidSimulators(const std::string&) const override { return {}; }
    Simulators GetValidSimulators() const override { return {}; }
    bool IsValidSimulator(SimulatorType::Enum, const std::string&) const override { return false; }
    bool IsValidSimulator(SimulatorType::Enum) const override { return false; }
    bool IsValid(SectionType::Enum, SimulatorType::Enum, const std::string&) const override { return false; }
    bool IsValid(SectionType::Enum, SimulatorType::Enum) const override { return false; }
    std::vector<SectionType::Enum> GetValidSections() const override { return {}; }
    SectionType::Enum GetFirstValidSection() const override { return {}; }
    bool HasScope() const override { return false; }
    const std::vector<const IKeywordSyntax*>& GetScopeKeywords() const override { return noKeywords_; }
    const IKeywordSyntax* GetScopeSyntax() const override { return nullptr; }
    const ISummaryMnemonicInfo* GetSummaryMnemonicInfo() const override { return nullptr; }
    const ICellPropertyInfo* GetCellPropertyInfo() const override { return nullptr; }
    bool HasIdentifiers() const override { return identifierCount > 0; }
    bool HasPrecedents() const override { return false; }
    const std::set<std::string>& GetPrecedents(SectionType::Enum) const override { return noNames_; }

    int identifierCount;

private:
    std::unique_ptr<IKeywordDataMDInternal> md_;
    std::string name_ = "TEST";
    std::vector<std::string> none_;
    std::vector<const IKeywordSyntax*> noKeywords_;
    std::set<std::string> noNames_;
};

/// The values as one text: `(1 - 'text' [2 3~] {A=1 B=-} "raw")`. A boolean is its byte as a number, `-` no
/// value, `~` the mark of a defaulted element.
std::string Dump(const IKeywordData& data);

/// New data of the keyword, with the values of such a text unless it is empty.
std::unique_ptr<IKeywordData> Make(const IKeywordSyntax& keyword, const std::string& text = {});

/// Data of a separate keyword.
struct Made {
    explicit Made(const std::string& shape, const std::string& text = {})
        : keyword(shape)
        , data(Make(keyword, text))
    {
    }
    Keyword keyword;
    std::unique_ptr<IKeywordData> data;
};

struct Child {
    void* place; // null in a map, which doesn't show where its values are
    const IKeywordDataMD* md;
};

/// The items, elements or pairs, in order.
std::vector<Child> ChildrenOf(IKeywordData& data);
/// Whether the metadata are of data that are an object.
bool IsNode(const IKeywordDataMD* md);

/// A child as what it is stored as.
template <class T = IKeywordData>
T& At(IKeywordData& data, std::size_t i)
{
    return *static_cast<T*>(ChildrenOf(data).at(i).place);
}

/// The rows of a table with a row a line and bars between the cells. Blanks around a cell don't count.
std::vector<std::vector<std::string>> Table(const std::string& text);

} // namespace Veld::Quor::Tests
