#include "quor/deck/internal/read/keyword/WrongSizes.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace Veld::Quor::Core::Decks {

namespace {

std::set<std::string> NamesIn(const std::string& size)
{
    std::set<std::string> names;
    EvaluateSize(size, [&names](const std::string& name) {
        names.insert(name);
        return std::optional<long long>(1);
    });
    return names;
}

/// The value of the name with which the size is `count`; empty if there is none. Sizes grow with each name.
std::optional<long long> FindValue(
    const std::string& size, const std::string& name, long long count, const SizeOfName& sizeOf)
{
    const auto with = [&](long long value) {
        return EvaluateSize(size, [&](const std::string& other) {
            return other == name ? std::optional(value) : sizeOf(other);
        }).value_or(count + 1);
    };
    long long least = 1;
    long long most = count + 1;
    while (least < most) {
        const long long middle = least + (most - least) / 2;
        if (with(middle) < count)
            least = middle + 1;
        else
            most = middle;
    }
    return with(least) == count ? std::optional(least) : std::nullopt;
}

} // namespace

bool WrongSizes::IsKnownElsewhere(const std::string& size) const
{
    if (!known_ || known_->empty())
        return false;
    const std::set<std::string> names = NamesIn(size);
    return std::any_of(
        names.begin(), names.end(), [this](const std::string& name) { return known_->count(name) > 0; });
}

bool WrongSizes::HasReported(const std::string& size) const
{
    const auto isSize = [&](const auto& reason) { return reason.first == size; };
    return IsKnownElsewhere(size) || std::any_of(reported_.begin(), reported_.end(), isSize);
}

bool WrongSizes::IsKnown(const std::string& size, long long count, const SizeOfName& sizeOf)
{
    if (IsKnownElsewhere(size))
        return true;
    std::vector<std::pair<std::string, long long>> reasons{{size, count}};
    for (const std::string& name : NamesIn(size)) {
        if (const auto value = FindValue(size, name, count, sizeOf))
            reasons.emplace_back(name, *value);
    }
    bool isKnown = false;
    for (const auto& reason : reasons)
        isKnown = isKnown || reported_.count(reason) > 0;
    if (isKnown)
        return true;
    reported_.insert(reasons.begin(), reasons.end());
    for (std::size_t i = 1; i < reasons.size(); ++i)
        names_.push_back(reasons[i].first);
    return false;
}

bool WrongSizes::IsKnown(const std::string& size)
{
    if (IsKnownElsewhere(size))
        return true;
    if (!reported_.emplace(size, 0).second)
        return true;
    const std::set<std::string> names = NamesIn(size);
    names_.insert(names_.end(), names.begin(), names.end());
    return false;
}

} // namespace Veld::Quor::Core::Decks
