#include "quor/foundation/SimulatorType.h"

namespace Veld::Quor::Core::Keywords {

const std::vector<Service::EnumInfo<SimulatorType>>& SimulatorType::EnumInfos()
{ // never freed: a host may ask from a destructor at exit
    static const auto& rows = *new std::vector<Service::EnumInfo<SimulatorType>>{{Carrow, "Carrow"},
        {Dunmere, "Dunmere"}, {Sedge, "Sedge"}, {Hallow, "Hallow"}, {Marlpit, "Marlpit"}, {Ostrey, "Ostrey"},
        {Wend, "Wend"}, {Tolmen, "Tolmen"}, {Wend_GE, "Wend_GE"}, {Wend_CLASSIC, "Wend_CLASSIC"}};
    return rows;
}

SimulatorType::Enum SimulatorType::FromString(const std::string& name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

SimulatorType::Enum SimulatorType::FromString(const char* name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

const std::string& SimulatorType::ToString(Enum value)
{
    return Service::FindText(EnumInfos(), value);
}

bool SimulatorType::HasMode(Enum simulator, SimulatorModeType::Enum mode)
{
    switch (simulator) {
    case Carrow:
        return mode == SimulatorModeType::BlackOil || mode == SimulatorModeType::Any;
    case Sedge:
        return mode != SimulatorModeType::Thermal;
    default:
        return true;
    }
}

} // namespace Veld::Quor::Core::Keywords
