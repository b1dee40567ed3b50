// Prints the kind of value of each variable of a deck. The reader keeps the texts with variables
// in the IKeywordVariables family; the library walks the data and pairs each variable with its metadata.

#include "quor/Keywords.h"

#include <iostream>
#include <map>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Keywords;

namespace {

/// The texts of one record, by item.
class RecordTexts : public IKeywordRecordDataVariables {
public:
    void Set(int item, const std::string& text)
    {
        if (!VariablesString::ContainsVariables(text))
            return;
        items_.push_back(item);
        texts_[item] = VariablesString(text);
    }
    const std::vector<int>& GetIndices() const override { return items_; }
    const VariablesString& GetVariablesString(int item) const override { return texts_.at(item); }

private:
    std::vector<int> items_;
    std::map<int, VariablesString> texts_;
};

/// The texts of a deck, by node of data.
class DeckTexts : public IKeywordVariables {
public:
    RecordTexts& Of(const IKeywordData& record) { return records_[&record]; }
    const IKeywordDataVariables* GetDataVariables(const IKeywordData& data) const override
    {
        const auto at = records_.find(&data);
        return at == records_.end() ? nullptr : &at->second;
    }

private:
    std::map<const IKeywordData*, RecordTexts> records_;
};

} // namespace

int main()
{
    const IKeywordSyntax& wefac = *KeywordSyntaxTable::Instance().Lookup("WEFAC", true);
    const auto data = KeywordDataFactory::Instance().Construct(wefac);
    const IKeywordRecordData& record = AddRecord(AsList(*data));

    DeckTexts texts;
    texts.Of(record).Set(0, "$FIELD/$WELL");
    texts.Of(record).Set(1, "$UPTIME -- not $this");

    KeywordDataMDProcessor processor;
    KeywordVariableUtils::ProcessVariables(*data, texts, processor);
    for (const KeywordDataMDProcessor::Item& item : processor.GetData())
        std::cout << item.VariableName() << " stands for " << item.MD()->GetName() << '\n';
}
