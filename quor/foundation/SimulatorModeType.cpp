#include "quor/foundation/SimulatorModeType.h"

namespace Veld::Quor::Core::Keywords {

const std::vector<Service::EnumInfo<SimulatorModeType>>& SimulatorModeType::EnumInfos()
{ // never freed: a host may ask from a destructor at exit
    static const auto& rows = *new std::vector<Service::EnumInfo<SimulatorModeType>>{
        {BlackOil, "BlackOil"}, {Compositional, "Compositional"}, {Thermal, "Thermal"}};
    return rows;
}

SimulatorModeType::Enum SimulatorModeType::FromString(const std::string& name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

SimulatorModeType::Enum SimulatorModeType::FromString(const char* name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

const std::string& SimulatorModeType::ToString(Enum value)
{
    return Service::FindText(EnumInfos(), value);
}

} // namespace Veld::Quor::Core::Keywords
