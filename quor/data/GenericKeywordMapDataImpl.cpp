#include "quor/data/internal/GenericKeywordMapDataImpl.h"

namespace Veld::Quor::Core::Keywords {

GenericKeywordMapDataImpl::GenericKeywordMapDataImpl(const IKeywordMapMD* md, const IKeywordSyntax* syntax)
    : md_(md)
    , syntax_(syntax)
{
    pairs_.reserve(static_cast<std::size_t>(md->GetSize()));
    for (int i = 0; i < md->GetSize(); ++i)
        pairs_.emplace_back(md->GetItemMD(i), Service::Optional<int>());
}

bool GenericKeywordMapDataImpl::GetValue(const std::string& key, Service::Optional<int>& value) const
{
    return KeywordMapDataHelper::GetValue(pairs_, key, value);
}

bool GenericKeywordMapDataImpl::SetValue(const std::string& key, int value)
{
    return KeywordMapDataHelper::SetValue(pairs_, key, value, md_);
}

void GenericKeywordMapDataImpl::SetValue(int i, int value)
{
    pairs_[static_cast<std::size_t>(i)].SetValue(value);
}

bool GenericKeywordMapDataImpl::SetValueToDefault(const std::string& key)
{
    return KeywordMapDataHelper::SetValueToDefault(pairs_, key);
}

void GenericKeywordMapDataImpl::SetValueToDefault(int i)
{
    pairs_[static_cast<std::size_t>(i)].SetValue({});
}

} // namespace Veld::Quor::Core::Keywords
