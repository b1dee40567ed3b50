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
    return Make(md, syntax, std::make_shared<const RecordLayout>(*md));
}

std::unique_ptr<IKeywordData> GenericKeywordRecordDataImpl::Make(const IKeywordRecordMD* md,
    const IKeywordSyntax* syntax, const std::shared_ptr<const RecordLayout>& layout)
{
    return std::unique_ptr<IKeywordData>(new (*layout) GenericKeywordRecordDataImpl(md, syntax, layout));
}

GenericKeywordRecordDataImpl::GenericKeywordRecordDataImpl(const IKeywordRecordMD* md,
    const IKeywordSyntax* syntax, const std::shared_ptr<const RecordLayout>& layout)
    : md_(md)
    , syntax_(syntax)
    , elements_(layout)
{
    assert(static_cast<void*>(elements_.Block()) == this + 1);
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

GenericKeywordRecordDataImpl::Elements::Elements(const std::shared_ptr<const RecordLayout>& layout)
    : layout_(layout)
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
    if (layout_->IsPlain()) {
        CopyBlock(layout_->Image());
        return;
    }
    for (const RecordLayout::Item& item : layout_->Items()) {
        if (item.ops) {
            item.ops->construct(Block() + item.offset);
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
        CopyBlock(other.Block());
        return;
    }
    for (; built_ < items.size(); ++built_) {
        const RecordLayout::Item& item = items[built_];
        if (item.ops) {
            item.ops->copy(Block() + item.offset, other.At(built_));
        } else {
            const auto* const nested = static_cast<const IKeywordData*>(other.At(built_));
            SetNested(built_, nested ? nested->CloneSafely() : nullptr);
        }
    }
}

void GenericKeywordRecordDataImpl::Elements::CopyBlock(const std::byte* from)
{
    if (layout_->Size() > 0)
        std::memcpy(Block(), from, layout_->Size());
    built_ = layout_->Items().size();
}

void GenericKeywordRecordDataImpl::Elements::SetNested(std::size_t i, std::unique_ptr<IKeywordData> data)
{
    ::new (Block() + layout_->Items()[i].offset) void*(data.release());
}

} // namespace Veld::Quor::Core::Keywords
