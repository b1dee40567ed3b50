#pragma once

#include "quor/data/KeywordRecordData.h"
#include "quor/data/internal/RecordLayout.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <cstddef>
#include <memory>

namespace Veld::Quor::Core::Keywords {

/// The object and the block of its items are one allocation.
class GenericKeywordRecordDataImpl final : public KeywordRecordData {
public:
    static std::unique_ptr<IKeywordData> Make(const IKeywordRecordMD* md, const IKeywordSyntax* syntax);
    /// `layout` is that of `md`.
    static std::unique_ptr<IKeywordData> Make(const IKeywordRecordMD* md, const IKeywordSyntax* syntax,
        const std::shared_ptr<const RecordLayout>& layout);
    GenericKeywordRecordDataImpl& operator=(const GenericKeywordRecordDataImpl&) = delete;
    ~GenericKeywordRecordDataImpl() override = default;

    static void operator delete(void* place) { ::operator delete(place); }

    IKeywordData* Clone() const override { return new (Layout()) GenericKeywordRecordDataImpl(*this); }
    bool ReservedQuery() const override { return false; }
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return syntax_; }

    int GetSize() const override { return static_cast<int>(elements_.Layout().Items().size()); }
    void* GetData(int i) override { return elements_.At(static_cast<std::size_t>(i)); }
    const void* GetData(int i) const override { return elements_.At(static_cast<std::size_t>(i)); }
    bool ReservedRecordQuery() const override { return true; }

    const RecordLayout& Layout() const { return elements_.Layout(); }
    const std::byte* Block() const { return elements_.Block(); }

private:
    GenericKeywordRecordDataImpl(const IKeywordRecordMD* md, const IKeywordSyntax* syntax,
        const std::shared_ptr<const RecordLayout>& layout);
    GenericKeywordRecordDataImpl(const GenericKeywordRecordDataImpl& other);

    static void* operator new(std::size_t size, const RecordLayout& layout)
    {
        return ::operator new(size + layout.Size()); // aligned for any scalar
    }
    static void operator delete(void* place, const RecordLayout&) { ::operator delete(place); }

    /// What is in the block. Frees what was made, also when it was only half built.
    class Elements {
    public:
        explicit Elements(const std::shared_ptr<const RecordLayout>& layout);
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
        const std::shared_ptr<const RecordLayout>& SharedLayout() const { return layout_; }

    private:
        void CopyBlock(const std::byte* from);
        void SetNested(const RecordLayout::Item& item, std::unique_ptr<IKeywordData> data);
        IKeywordData* NestedAt(const RecordLayout::Item& item) const
        {
            return *reinterpret_cast<IKeywordData**>(Block() + item.offset);
        }

        std::shared_ptr<const RecordLayout> layout_;
        std::size_t built_ = 0; // owners that are constructed
    };

    const IKeywordRecordMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
    Elements elements_; // the last one
};

} // namespace Veld::Quor::Core::Keywords
