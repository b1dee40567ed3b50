#pragma once

#include "quor/data/KeywordRecordData.h"
#include "quor/data/internal/RecordLayout.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <cstddef>
#include <memory>

namespace Veld::Quor::Core::Keywords {

class GenericKeywordRecordDataImpl final : public KeywordRecordData {
public:
    GenericKeywordRecordDataImpl(const IKeywordRecordMD* md, const IKeywordSyntax* syntax);
    /// `layout` is that of `md`.
    GenericKeywordRecordDataImpl(
        const IKeywordRecordMD* md, const IKeywordSyntax* syntax, std::shared_ptr<const RecordLayout> layout);
    GenericKeywordRecordDataImpl(const GenericKeywordRecordDataImpl& other);
    GenericKeywordRecordDataImpl& operator=(const GenericKeywordRecordDataImpl&) = delete;
    ~GenericKeywordRecordDataImpl() override = default;

    IKeywordData* Clone() const override { return new GenericKeywordRecordDataImpl(*this); }
    bool ReservedQuery() const override { return false; }
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return syntax_; }

    int GetSize() const override { return static_cast<int>(elements_.Layout().Items().size()); }
    void* GetData(int i) override { return elements_.At(static_cast<std::size_t>(i)); }
    const void* GetData(int i) const override { return elements_.At(static_cast<std::size_t>(i)); }
    bool ReservedRecordQuery() const override { return true; }

    const RecordLayout& Layout() const { return elements_.Layout(); }
    const std::shared_ptr<const RecordLayout>& SharedLayout() const { return elements_.SharedLayout(); }

private:
    /// The block. Frees what was made, also when it was only half built.
    class Elements {
    public:
        explicit Elements(std::shared_ptr<const RecordLayout> layout);
        ~Elements();
        Elements(const Elements&) = delete;
        Elements& operator=(const Elements&) = delete;

        void Construct(const IKeywordSyntax* syntax);
        void Copy(const Elements& other);

        /// The scalar in place, or the nested object.
        void* At(std::size_t i) const
        {
            const RecordLayout::Item& item = layout_->Items()[i];
            std::byte* const place = block_.get() + item.offset;
            return item.ops ? place : *reinterpret_cast<void**>(place);
        }
        const RecordLayout& Layout() const { return *layout_; }
        const std::shared_ptr<const RecordLayout>& SharedLayout() const { return layout_; }

    private:
        void SetNested(std::size_t i, std::unique_ptr<IKeywordData> data);

        std::shared_ptr<const RecordLayout> layout_;
        std::unique_ptr<std::byte[]> block_;
        std::size_t built_ = 0; // items that are constructed
    };

    const IKeywordRecordMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
    Elements elements_;
};

} // namespace Veld::Quor::Core::Keywords
