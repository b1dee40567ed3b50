#include "quor/deck/internal/read/keyword/WrongSizes.h"

#include <optional>
#include <vector>

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

bool WrongSizes::IsKnown(const std::string& size, long long count, const SizeOfName& sizeOf)
{
    std::vector<std::pair<std::string, long long>> reasons{{size, count}};
    for (const std::string& name : NamesIn(size)) {
        if (const auto value = FindValue(size, name, count, sizeOf))
            reasons.emplace_back(name, *value);
    }
    bool isKnown = false;
    for (const auto& reason : reasons)
        isKnown = isKnown || reported_.count(reason) > 0;
    if (!isKnown)
        reported_.insert(reasons.begin(), reasons.end());
    return isKnown;
}

} // namespace Veld::Quor::Core::Decks
