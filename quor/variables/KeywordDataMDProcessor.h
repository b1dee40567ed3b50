#pragma once

#include "quor/foundation/Export.h"
#include "quor/variables/IKeywordVariables.h"

#include <map>
#include <set>
#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordDataMD;
class IKeywordMapMD;

/// Collects which variable is at which metadata, over as many keywords as it is taken through. The
/// metadata are the table's.
class VELD_QUOR_EXPORT KeywordDataMDProcessor : public IVariableProcessor {
public:
    /// One variable at one node of metadata.
    class VELD_QUOR_EXPORT Item {
    public:
        /// `md` is the table's; the item does not own it.
        Item(const std::string& variableName, const IKeywordDataMD* md);
        Item(const Item&);
        Item(Item&&) noexcept;
        Item& operator=(const Item&);
        Item& operator=(Item&&) noexcept;
        ~Item();

        /// With its "$".
        const std::string& VariableName() const { return variableName_; }
        /// Of the element, the item of the record or the assignment that holds the variable; dies with the
        /// table.
        const IKeywordDataMD* MD() const { return md_; }
        /// By name, then by the address of the metadata.
        bool operator<(const Item& other) const;

    private:
        std::string variableName_;
        const IKeywordDataMD* md_;
    };

    KeywordDataMDProcessor();
    KeywordDataMDProcessor(const KeywordDataMDProcessor&);
    KeywordDataMDProcessor(KeywordDataMDProcessor&&) noexcept;
    KeywordDataMDProcessor& operator=(const KeywordDataMDProcessor&);
    KeywordDataMDProcessor& operator=(KeywordDataMDProcessor&&) noexcept;
    ~KeywordDataMDProcessor() override;

    /// All that was collected so far. Lasts as long as the processor; further walks add to it.
    const std::set<Item>& GetData() const { return data_; }

private:
    void Process(const IKeywordData& data, const IKeywordDataVariables& variables) override;
    void Insert(const VariablesString& text, const IKeywordDataMD* md);
    static void BuildKeyToIndex(const IKeywordMapMD& md, std::map<std::string, int>& keyToIndex);

    std::set<Item> data_;
};

} // namespace Veld::Quor::Core::Keywords
