#pragma once

#include "quor/data/KeywordRecordData.h"
#include "quor/data/internal/RecordLayout.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace Veld::Quor::Core::Keywords {

/// The object and the block of its items are one allocation, or a place that the list has for them.
class GenericKeywordRecordDataImpl final : public KeywordRecordData {
public:
    static std::unique_ptr<IKeywordData> Make(const IKeywordRecordMD* md, const IKeywordSyntax* syntax);
    /// In a place of `SizeOf` bytes, which must outlive it, as must the layout; to delete it doesn't free
    /// them.
    /// @{
    static GenericKeywordRecordDataImpl* MakeAt(void* place, const RecordLayout& layout);
    GenericKeywordRecordDataImpl* CloneAt(void* place) const;
    /// @}
    /// Of the object and its block, a multiple of the size of a pointer.
    static std::size_t SizeOf(const RecordLayout& layout)
    {
        return (sizeof(GenericKeywordRecordDataImpl) + layout.Size() + sizeof(void*) - 1) / sizeof(void*)
            * sizeof(void*);
    }
    GenericKeywordRecordDataImpl& operator=(const GenericKeywordRecordDataImpl&) = delete;
    ~GenericKeywordRecordDataImpl() override = default;

    static void operator delete(GenericKeywordRecordDataImpl* record, std::destroying_delete_t)
    {
        const bool isAlone = record->IsAlone();
        record->~GenericKeywordRecordDataImpl();
        if (isAlone)
            ::operator delete(record);
    }

    IKeywordData* Clone() const override { return new (Layout()) GenericKeywordRecordDataImpl(*this, true); }
    bool ReservedQuery() const override { return false; }
    const IKeywordDataMD* GetMD() const override { return Layout().MD(); }
    const IKeywordSyntax* GetSyntax() const override { return Layout().Syntax(); }

    int GetSize() const override { return static_cast<int>(elements_.Layout().Items().size()); }
    void* GetData(int i) override { return elements_.At(static_cast<std::size_t>(i)); }
    const void* GetData(int i) const override { return elements_.At(static_cast<std::size_t>(i)); }
    bool ReservedRecordQuery() const override { return true; }

    const RecordLayout& Layout() const { return elements_.Layout(); }
    std::byte* Block() const { return elements_.Block(); }
    /// Whether it is an allocation, and no place of a list.
    bool IsAlone() const { return elements_.IsAlone(); }

private:
    GenericKeywordRecordDataImpl(const RecordLayout& layout, bool isAlone);
    GenericKeywordRecordDataImpl(const GenericKeywordRecordDataImpl& other, bool isAlone);

    static void* operator new(std::size_t size, const RecordLayout& layout)
    {
        return ::operator new(size + layout.Size()); // aligned for any scalar
    }
    static void operator delete(void* place, const RecordLayout&) { ::operator delete(place); }

    /// What is in the block. Frees what was made, also when it was only half built. That of a record which is
    /// alone keeps the layout.
    class Elements {
    public:
        Elements(const RecordLayout& layout, bool isAlone);
        ~Elements();
        Elements(const Elements&) = delete;
        Elements& operator=(const Elements&) = delete;

        void Construct(const IKeywordSyntax* syntax);
        void Copy(const Elements& other);

        /// The scalar in place, or the nested object.
        void* At(std::size_t i) const
        {
            const RecordLayout::Item& item = layout_->Items()[i];
            std::byte* const place = Block() + item.offset;
            return item.ops ? place : *reinterpret_cast<void**>(place);
        }
        /// It begins where this object, the last member of the record, ends.
        std::byte* Block() const { return reinterpret_cast<std::byte*>(const_cast<Elements*>(this) + 1); }
        const RecordLayout& Layout() const { return *layout_; }
        bool IsAlone() const { return isAlone_; }

    private:
        void CopyBlock(const std::byte* from);
        void SetNested(const RecordLayout::Item& item, std::unique_ptr<IKeywordData> data);
        IKeywordData* NestedAt(const RecordLayout::Item& item) const
        {
            return *reinterpret_cast<IKeywordData**>(Block() + item.offset);
        }

        const RecordLayout* layout_;
        std::uint32_t built_ = 0; // owners that are constructed
        bool isAlone_;
    };

    Elements elements_; // the last one
};

} // namespace Veld::Quor::Core::Keywords
