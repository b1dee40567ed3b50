#include "quor/data/internal/GenericKeywordListPtrDataImpl.h"

#include "quor/data/ElementBuffer.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/data/KeywordListData.h"
#include "quor/data/internal/GenericKeywordDataFactory.h"
#include "quor/data/internal/GenericKeywordRecordDataImpl.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"

#include <cstddef>
#include <typeinfo>

namespace Veld::Quor::Core::Keywords {

namespace {

constexpr const char* setData = "KeywordListPtrDataImpl_::SetData"; // in the texts of AddData too

} // namespace

GenericKeywordListPtrDataImpl::GenericKeywordListPtrDataImpl(
    const IKeywordListMD* md, const IKeywordSyntax* syntax)
    : md_(md)
    , syntax_(syntax)
{
}

GenericKeywordListPtrDataImpl::GenericKeywordListPtrDataImpl(const GenericKeywordListPtrDataImpl& other)
    : GenericKeywordListPtrDataImpl(other.md_, other.syntax_) // what fails after this frees the elements
{
    layout_ = other.layout_;
    Reserve(other.elements_.size());
    for (const IKeywordData* const element : other.elements_)
        elements_.push_back(CopyOf(*element));
}

GenericKeywordListPtrDataImpl::~GenericKeywordListPtrDataImpl()
{
    DestroyAll();
}

void GenericKeywordListPtrDataImpl::Reserve(std::size_t n)
{
    elements_.reserve(n);
    if (n > elements_.size())
        chunks_.Expect(n - elements_.size());
}

void GenericKeywordListPtrDataImpl::Clear()
{
    DestroyAll();
    elements_.clear();
    chunks_.Clear();
    areAllInChunks_ = true;
}

bool GenericKeywordListPtrDataImpl::operator==(const IKeywordData& other) const
{
    return KeywordDataEqual(*this, other);
}

void GenericKeywordListPtrDataImpl::AddData(const void*, const void*)
{
    // Wanted: there are no arrays of records or lists.
}

void* GenericKeywordListPtrDataImpl::AddData(const void* value)
{
    const auto* const data = static_cast<const IKeywordData*>(value);
    const bool fits = data && data->GetMD() == md_->GetItemMD();
    if (elements_.size() == elements_.capacity())
        elements_.reserve(GrownCapacity(elements_.capacity()));
    IKeywordData* const element = fits ? CopyOf(*data) : MakeElement();
    if (!element)
        return nullptr;
    if (data && !fits) { // Wanted: where no element can be made, the value is not looked at.
        Destroy(element);
        KeywordListFailure::InconsistentType(setData);
    }
    elements_.push_back(element);
    return element;
}

void GenericKeywordListPtrDataImpl::SetData(std::size_t i, const void* value)
{
    KeywordListFailure::CheckIndex(i, GetSize());
    KeywordListFailure::CheckValue(value, setData);
    const auto& data = *static_cast<const IKeywordData*>(value);
    if (data.GetMD() != md_->GetItemMD())
        KeywordListFailure::InconsistentType(setData);
    IKeywordData* const copy = CopyOf(data); // first: it may be the element itself
    Destroy(elements_[i]);
    elements_[i] = copy;
}

void GenericKeywordListPtrDataImpl::RemoveData(std::size_t i)
{
    KeywordListFailure::CheckIndex(i, GetSize());
    Destroy(elements_[i]);
    elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(i));
}

IKeywordData* GenericKeywordListPtrDataImpl::MakeElement()
{
    if (!layout_) {
        const IKeywordDataMD* const itemMD = md_->GetItemMD();
        if (KeywordUtils::GetMDType(itemMD) != IKeywordDataMD::MDType::Record) {
            areAllInChunks_ = false;
            return GenericKeywordDataFactory::Construct(itemMD, syntax_).release();
        }
        layout_.reset(new RecordLayout(&CastMD<const IKeywordRecordMD>(*itemMD), syntax_));
    }
    return InChunk([&](void* place) { return GenericKeywordRecordDataImpl::MakeAt(place, *layout_); });
}

IKeywordData* GenericKeywordListPtrDataImpl::CopyOf(const IKeywordData& data)
{
    if (typeid(data) == typeid(GenericKeywordRecordDataImpl)) {
        const auto& record = static_cast<const GenericKeywordRecordDataImpl&>(data);
        // A host may have added items to the metadata since the record was made.
        const auto& md = CastMD<const IKeywordRecordMD>(*record.GetMD());
        if (!layout_ && record.GetSyntax() == syntax_ && record.GetSize() == md.GetSize())
            layout_.reset(&record.Layout());
        if (&record.Layout() == layout_.get())
            return InChunk([&](void* place) { return record.CloneAt(place); });
    }
    areAllInChunks_ = false;
    return data.Clone();
}

template <class Make>
IKeywordData* GenericKeywordListPtrDataImpl::InChunk(const Make& make)
{
    const std::size_t size = GenericKeywordRecordDataImpl::SizeOf(*layout_);
    void* const place = chunks_.Take(size);
    try {
        return make(place);
    } catch (...) {
        chunks_.GiveBack(place, size);
        throw;
    }
}

void GenericKeywordListPtrDataImpl::Destroy(IKeywordData* element)
{
    const bool isInChunk = typeid(*element) == typeid(GenericKeywordRecordDataImpl)
        && !static_cast<GenericKeywordRecordDataImpl*>(element)->IsAlone();
    delete element;
    if (isInChunk)
        chunks_.GiveBack(element, GenericKeywordRecordDataImpl::SizeOf(*layout_));
}

/// What is in the chunks and has nothing of its own goes with them.
void GenericKeywordListPtrDataImpl::DestroyAll()
{
    if (areAllInChunks_ && (!layout_ || layout_->IsPlain()))
        return;
    for (IKeywordData* const element : elements_) {
        if (areAllInChunks_)
            static_cast<GenericKeywordRecordDataImpl*>(element)->~GenericKeywordRecordDataImpl();
        else
            delete element;
    }
}

} // namespace Veld::Quor::Core::Keywords
