#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/metadata/IKeywordListMD.h"

#include <memory>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class RecordLayout;

/// A list of records or of lists. Owns its elements, and never keeps an object that it was given.
class GenericKeywordListPtrDataImpl final : public IKeywordListData {
public:
    GenericKeywordListPtrDataImpl(const IKeywordListMD* md, const IKeywordSyntax* syntax);
    GenericKeywordListPtrDataImpl(const GenericKeywordListPtrDataImpl& other);
    GenericKeywordListPtrDataImpl& operator=(const GenericKeywordListPtrDataImpl&) = delete;
    ~GenericKeywordListPtrDataImpl() override;

    IKeywordData* Clone() const override { return new GenericKeywordListPtrDataImpl(*this); }
    bool ReservedQuery() const override { return false; }
    bool operator==(const IKeywordData& other) const override;
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return syntax_; }

    std::int64_t GetSize() const override { return static_cast<std::int64_t>(elements_.size()); }
    void Reserve(std::size_t n) override { elements_.reserve(n); }
    const void* GetData(std::size_t i) const override { return elements_[i].get(); }
    void* GetData(std::size_t i) override { return elements_[i].get(); }
    void AddData(const void* first, const void* last) override;
    void* AddData(const void* value) override;
    void SetData(std::size_t i, const void* value) override;
    void RemoveData(std::size_t i) override;
    void Clear() override { elements_.clear(); }
    bool IsDefaulted(std::size_t) const override { return false; }
    void SetDefaulted(std::size_t, bool) override { }

private:
    std::unique_ptr<IKeywordData> CreateElement();

    const IKeywordListMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
    std::vector<std::unique_ptr<IKeywordData>> elements_;
    std::shared_ptr<const RecordLayout> layout_; // of all elements; null until the first record is made
};

} // namespace Veld::Quor::Core::Keywords
