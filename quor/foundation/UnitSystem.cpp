#include "quor/foundation/UnitSystem.h"

namespace Veld::Quor::Core::Keywords {

const std::vector<Service::EnumInfo<UnitSystem>>& UnitSystem::EnumInfos()
{ // never freed: a host may ask from a destructor at exit
    static const auto& rows = *new std::vector<Service::EnumInfo<UnitSystem>>{
        {METRIC, "METRIC"}, {FIELD, "FIELD"}, {LAB, "LAB"}, {PVT_M, "PVT-M"}};
    return rows;
}

UnitSystem::Enum UnitSystem::FromString(const std::string& name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

UnitSystem::Enum UnitSystem::FromString(const char* name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

const std::string& UnitSystem::ToString(Enum value)
{
    return Service::FindText(EnumInfos(), value);
}

} // namespace Veld::Quor::Core::Keywords
