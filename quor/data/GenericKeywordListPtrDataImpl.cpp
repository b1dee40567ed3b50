#include "quor/data/internal/GenericKeywordListPtrDataImpl.h"

#include "quor/data/ElementBuffer.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/data/KeywordListData.h"
#include "quor/data/internal/GenericKeywordDataFactory.h"
#include "quor/data/internal/GenericKeywordRecordDataImpl.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"

#include <cstddef>

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
    : IKeywordListData(other)
    , md_(other.md_)
    , syntax_(other.syntax_)
    , layout_(other.layout_)
{
    elements_.reserve(other.elements_.size());
    for (const auto& element : other.elements_)
        elements_.push_back(element->CloneSafely());
}

GenericKeywordListPtrDataImpl::~GenericKeywordListPtrDataImpl() = default;

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
    std::unique_ptr<IKeywordData> element = fits ? data->CloneSafely() : CreateElement();
    if (!element)
        return nullptr;
    if (data && !fits) // Wanted: where no element can be made, the value is not looked at.
        KeywordListFailure::InconsistentType(setData);
    if (elements_.size() == elements_.capacity())
        elements_.reserve(GrownCapacity(elements_.capacity()));
    elements_.push_back(std::move(element));
    return elements_.back().get();
}

void GenericKeywordListPtrDataImpl::SetData(std::size_t i, const void* value)
{
    KeywordListFailure::CheckIndex(i, GetSize());
    KeywordListFailure::CheckValue(value, setData);
    const auto& data = *static_cast<const IKeywordData*>(value);
    if (data.GetMD() != md_->GetItemMD())
        KeywordListFailure::InconsistentType(setData);
    elements_[i] = data.CloneSafely();
}

void GenericKeywordListPtrDataImpl::RemoveData(std::size_t i)
{
    KeywordListFailure::CheckIndex(i, GetSize());
    elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(i));
}

std::unique_ptr<IKeywordData> GenericKeywordListPtrDataImpl::CreateElement()
{
    const IKeywordDataMD* const itemMD = md_->GetItemMD();
    if (KeywordUtils::GetMDType(itemMD) != IKeywordDataMD::MDType::Record)
        return GenericKeywordDataFactory::Construct(itemMD, syntax_);
    const auto& recordMD = CastMD<const IKeywordRecordMD>(*itemMD);
    if (!layout_)
        layout_ = std::make_shared<const RecordLayout>(recordMD);
    return GenericKeywordRecordDataImpl::Make(&recordMD, syntax_, layout_);
}

} // namespace Veld::Quor::Core::Keywords
