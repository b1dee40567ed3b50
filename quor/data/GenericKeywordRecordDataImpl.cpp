#include "quor/data/internal/GenericKeywordRecordDataImpl.h"

#include "quor/data/internal/GenericKeywordDataFactory.h"

#include <cstring>
#include <new>
#include <utility>

namespace Veld::Quor::Core::Keywords {

GenericKeywordRecordDataImpl::GenericKeywordRecordDataImpl(
    const IKeywordRecordMD* md, const IKeywordSyntax* syntax)
    : GenericKeywordRecordDataImpl(md, syntax, std::make_shared<const RecordLayout>(*md))
{
}

GenericKeywordRecordDataImpl::GenericKeywordRecordDataImpl(
    const IKeywordRecordMD* md, const IKeywordSyntax* syntax, std::shared_ptr<const RecordLayout> layout)
    : md_(md)
    , syntax_(syntax)
    , elements_(std::move(layout))
{
    elements_.Construct(syntax);
}

GenericKeywordRecordDataImpl::GenericKeywordRecordDataImpl(const GenericKeywordRecordDataImpl& other)
    : KeywordRecordData(other)
    , md_(other.md_)
    , syntax_(other.syntax_)
    , elements_(other.elements_.SharedLayout())
{
    elements_.Copy(other.elements_);
}

GenericKeywordRecordDataImpl::Elements::Elements(std::shared_ptr<const RecordLayout> layout)
    : layout_(std::move(layout))
    , block_(new std::byte[layout_->Size()]) // aligned for any scalar
{
}

GenericKeywordRecordDataImpl::Elements::~Elements()
{
    if (layout_->IsPlain())
        return;
    for (std::size_t i = 0; i < built_; ++i) {
        if (const ScalarOps* const ops = layout_->Items()[i].ops)
            ops->destroy(At(i));
        else
            delete static_cast<IKeywordData*>(At(i));
    }
}

void GenericKeywordRecordDataImpl::Elements::Construct(const IKeywordSyntax* syntax)
{
    for (const RecordLayout::Item& item : layout_->Items()) {
        if (item.ops) {
            item.ops->construct(block_.get() + item.offset);
        } else {
            std::unique_ptr<IKeywordData> nested = GenericKeywordDataFactory::Construct(item.md, syntax);
            if (!nested && item.md)
                GenericKeywordDataFactory::FailUnhandled(
                    "GenericKeywordDataFactory::ConstructRecordElement()", *item.md);
            SetNested(built_, std::move(nested));
        }
        ++built_;
    }
}

void GenericKeywordRecordDataImpl::Elements::Copy(const Elements& other)
{
    const std::vector<RecordLayout::Item>& items = layout_->Items();
    if (layout_->IsPlain()) {
        if (layout_->Size() > 0)
            std::memcpy(block_.get(), other.block_.get(), layout_->Size());
        built_ = items.size();
        return;
    }
    for (; built_ < items.size(); ++built_) {
        const RecordLayout::Item& item = items[built_];
        if (item.ops) {
            item.ops->copy(block_.get() + item.offset, other.At(built_));
        } else {
            const auto* const nested = static_cast<const IKeywordData*>(other.At(built_));
            SetNested(built_, nested ? nested->CloneSafely() : nullptr);
        }
    }
}

void GenericKeywordRecordDataImpl::Elements::SetNested(std::size_t i, std::unique_ptr<IKeywordData> data)
{
    ::new (block_.get() + layout_->Items()[i].offset) void*(data.release());
}

} // namespace Veld::Quor::Core::Keywords
