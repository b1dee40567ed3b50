#include "quor/metadata/internal/MeasurementPool.h"

#include <unordered_set>

namespace Veld::Quor::Core::Keywords {

namespace {

std::unordered_set<std::string>& ThePool()
{
    static auto& pool = *new std::unordered_set<std::string>; // whose elements never move
    return pool;
}

} // namespace

const std::string* MeasurementPool::Intern(const std::string& name)
{
    return name.empty() ? nullptr : &*ThePool().insert(name).first;
}

const std::string* MeasurementPool::Find(const std::string& name)
{
    const auto at = ThePool().find(name);
    return at == ThePool().end() ? nullptr : &*at;
}

} // namespace Veld::Quor::Core::Keywords
