#include "quor/data/internal/GenericKeywordRecordDataImpl.h"

#include "quor/data/internal/GenericKeywordDataFactory.h"

#include <cassert>
#include <cstring>
#include <new>
#include <utility>

namespace Veld::Quor::Core::Keywords {

std::unique_ptr<IKeywordData> GenericKeywordRecordDataImpl::Make(
    const IKeywordRecordMD* md, const IKeywordSyntax* syntax)
{
    const LayoutPointer layout(new RecordLayout(md, syntax));
    return std::unique_ptr<IKeywordData>(new (*layout) GenericKeywordRecordDataImpl(*layout, true));
}

GenericKeywordRecordDataImpl* GenericKeywordRecordDataImpl::MakeAt(void* place, const RecordLayout& layout)
{
    return ::new (place) GenericKeywordRecordDataImpl(layout, false);
}

GenericKeywordRecordDataImpl* GenericKeywordRecordDataImpl::CloneAt(void* place) const
{
    return ::new (place) GenericKeywordRecordDataImpl(*this, false);
}

GenericKeywordRecordDataImpl::GenericKeywordRecordDataImpl(const RecordLayout& layout, bool isAlone)
    : elements_(layout, isAlone)
{
    assert(static_cast<void*>(elements_.Block()) == this + 1);
    elements_.Construct(layout.Syntax());
}

GenericKeywordRecordDataImpl::GenericKeywordRecordDataImpl(
    const GenericKeywordRecordDataImpl& other, bool isAlone)
    : KeywordRecordData(other)
    , elements_(other.Layout(), isAlone)
{
    elements_.Copy(other.elements_);
}

GenericKeywordRecordDataImpl::Elements::Elements(const RecordLayout& layout, bool isAlone)
    : layout_(&layout)
    , isAlone_(isAlone)
{
    if (isAlone)
        intrusive_ptr_add_ref(layout_);
}

GenericKeywordRecordDataImpl::Elements::~Elements()
{
    for (std::size_t i = 0; i < built_; ++i) {
        const RecordLayout::Item& item = layout_->Owners()[i];
        if (item.ops)
            item.ops->destroy(Block() + item.offset);
        else
            delete NestedAt(item);
    }
    if (isAlone_)
        intrusive_ptr_release(layout_);
}

void GenericKeywordRecordDataImpl::Elements::Construct(const IKeywordSyntax* syntax)
{
    CopyBlock(layout_->Image());
    for (const RecordLayout::Item& item : layout_->Owners()) {
        if (item.ops) {
            item.ops->construct(Block() + item.offset);
        } else {
            std::unique_ptr<IKeywordData> nested = GenericKeywordDataFactory::Construct(item.md, syntax);
            if (!nested && item.md)
                GenericKeywordDataFactory::FailUnhandled(
                    "GenericKeywordDataFactory::ConstructRecordElement()", *item.md);
            SetNested(item, std::move(nested));
        }
        ++built_;
    }
}

void GenericKeywordRecordDataImpl::Elements::Copy(const Elements& other)
{
    CopyBlock(other.Block());
    for (const RecordLayout::Item& item : layout_->Owners()) {
        if (item.ops) {
            item.ops->copy(Block() + item.offset, other.Block() + item.offset);
        } else {
            const IKeywordData* const nested = other.NestedAt(item);
            SetNested(item, nested ? nested->CloneSafely() : nullptr);
        }
        ++built_;
    }
}

/// The plain items; the others are constructed over what is copied.
void GenericKeywordRecordDataImpl::Elements::CopyBlock(const std::byte* from)
{
    if (layout_->Size() > 0)
        std::memcpy(Block(), from, layout_->Size());
}

void GenericKeywordRecordDataImpl::Elements::SetNested(
    const RecordLayout::Item& item, std::unique_ptr<IKeywordData> data)
{
    ::new (Block() + item.offset) IKeywordData*(data.release());
}

} // namespace Veld::Quor::Core::Keywords
