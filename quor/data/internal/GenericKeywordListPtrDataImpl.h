#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/internal/RecordChunks.h"
#include "quor/data/internal/RecordLayout.h"
#include "quor/metadata/IKeywordListMD.h"

#include <memory>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// A list of records or of lists. Owns its elements, and never keeps an object that it was given. The
/// library's own records are in its chunks.
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
    void Reserve(std::size_t n) override;
    const void* GetData(std::size_t i) const override { return elements_[i]; }
    void* GetData(std::size_t i) override { return elements_[i]; }
    void AddData(const void* first, const void* last) override;
    void* AddData(const void* value) override;
    void SetData(std::size_t i, const void* value) override;
    void RemoveData(std::size_t i) override;
    void Clear() override;
    bool IsDefaulted(std::size_t) const override { return false; }
    void SetDefaulted(std::size_t, bool) override { }

private:
    IKeywordData* MakeElement();
    IKeywordData* CopyOf(const IKeywordData& data);
    /// What `make` does with the place that is given to it.
    template <class Make>
    IKeywordData* InChunk(const Make& make);
    void Destroy(IKeywordData* element);
    void DestroyAll();

    const IKeywordListMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
    LayoutPointer layout_; // of the records in the chunks; null until there is one
    RecordChunks chunks_;
    std::vector<IKeywordData*> elements_; // owned
    bool areAllInChunks_ = true;
};

} // namespace Veld::Quor::Core::Keywords
