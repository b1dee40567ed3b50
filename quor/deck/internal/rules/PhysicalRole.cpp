#include "quor/deck/internal/rules/PhysicalRole.h"

namespace Veld::Quor::Core::Decks {

const std::vector<Service::EnumInfo<PhysicalRole>>& PhysicalRole::EnumInfos()
{
    // Never freed: a host may read a deck from a destructor at exit.
    static const auto& rows = *new std::vector<Service::EnumInfo<PhysicalRole>>{
        {PhaseOil, "phase oil"},
        {PhaseWater, "phase water"},
        {PhaseGas, "phase gas"},
        {DissolvedGas, "dissolved gas"},
        {Units, "system of units"},
        {CornerDepths, "depths of corners"},
        {CellTops, "depths of tops"},
        {ActiveCells, "active cells"},
        {SaturationOfWater, "saturation of water"},
        {SaturationOfGas, "saturation of gas"},
        {SaturationOfLiquid, "saturation of liquid"},
        {SaturationOfOil, "saturation of oil"},
        {PermeabilityToWater, "permeability to water"},
        {PermeabilityToGas, "permeability to gas"},
        {PermeabilityToOilWithWater, "permeability to oil with water"},
        {PermeabilityToOilWithGas, "permeability to oil with gas"},
        {PermeabilityToOil, "permeability to oil"},
        {CapillaryPressureOfGas, "capillary pressure of gas"},
        {Pressure, "pressure of fluid"},
        {ContentOfGas, "content of dissolved gas"},
        {VolumeOfOil, "volume factor of oil"},
        {VolumeOfGas, "volume factor of gas"},
        {VolumeOfWater, "volume factor of water"},
        {ViscosityOfOil, "viscosity of oil"},
        {ViscosityOfGas, "viscosity of gas"},
        {ViscosityOfWater, "viscosity of water"},
        {DepthOfDatum, "depth of datum"},
        {PressureOfDatum, "pressure of datum"},
        {ContactOfWater, "contact of water"},
        {ContactOfGas, "contact of gas"},
        {TableOfDissolvedGas, "table of dissolved gas"},
        {Fractions, "fractions"},
        {NameOfWell, "name of well"},
        {DepthOfWell, "depth of well"},
        {LimitOfProduction, "pressure limit of production"},
        {LimitOfInjection, "pressure limit of injection"},
        {HeadI, "head I"},
        {HeadJ, "head J"},
        {ConnectionI, "connection I"},
        {ConnectionJ, "connection J"},
        {ConnectionFirstK, "connection first K"},
        {ConnectionLastK, "connection last K"},
        {NameOfArray, "name of array"},
        {Porosity, "porosity"},
        {Permeability, "permeability"},
        {ProductionOfWell, "production of well"},
        {InjectionOfWell, "injection of well"},
        {StatusOfWell, "status of well"},
        {CellOfStatus, "cell of status"},
    };
    return rows;
}

PhysicalRole::Enum PhysicalRole::FromString(const std::string& name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

} // namespace Veld::Quor::Core::Decks
