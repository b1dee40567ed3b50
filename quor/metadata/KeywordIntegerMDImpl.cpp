#include "quor/metadata/KeywordIntegerMDImpl.h"

#include <memory>
#include <utility>

// The readers of the scalars are together in KeywordScalarMDImpls.cpp.
namespace Veld::Quor::Core::Keywords {

KeywordIntegerMDImpl::KeywordIntegerMDImpl() = default;

KeywordIntegerMDImpl::KeywordIntegerMDImpl(KeywordIntegerMDImpl&& other) noexcept
    : NumericMD(std::move(other))
    , map_(other.map_.exchange(nullptr)) // NOLINT(bugprone-use-after-move): the base took its own part alone
{
}

KeywordIntegerMDImpl& KeywordIntegerMDImpl::operator=(KeywordIntegerMDImpl&& other) noexcept
{
    NumericMD::operator=(std::move(other));
    delete map_.exchange(other.map_.exchange(nullptr)); // NOLINT(bugprone-use-after-move): as above
    return *this;
}

KeywordIntegerMDImpl::~KeywordIntegerMDImpl()
{
    ForgetMap();
}

const KeywordIntegerMDImpl::Defaults& KeywordIntegerMDImpl::GetDefaults() const
{
    const Defaults* map = map_.load(std::memory_order_acquire);
    if (!map) {
        auto made = std::make_unique<const Defaults>(defaults_.ToMap());
        if (map_.compare_exchange_strong(
                map, made.get(), std::memory_order_acq_rel)) // else another thread was first
            map = made.release();
    }
    return *map;
}

void KeywordIntegerMDImpl::SetDefaults(const Defaults& defaults)
{
    defaults_.Assign(defaults);
    ForgetMap(); // last: it may be that very map
}

void KeywordIntegerMDImpl::ForgetMap() noexcept
{
    delete map_.exchange(nullptr);
}

} // namespace Veld::Quor::Core::Keywords
