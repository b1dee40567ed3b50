#pragma once

#include "quor/foundation/service/EnumInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What a keyword, or one of its items, is in the physics of a deck. Checks know these alone, no keyword.
struct PhysicalRole {
    enum Enum : int {
        // Keywords.
        PhaseOil,
        PhaseWater,
        PhaseGas,
        DissolvedGas,
        Units,
        CornerDepths,
        CellTops,
        ActiveCells,
        // Items of tables of saturation functions.
        SaturationOfWater,
        SaturationOfGas,
        SaturationOfLiquid,
        SaturationOfOil,
        PermeabilityToWater,
        PermeabilityToGas,
        PermeabilityToOilWithWater,
        PermeabilityToOilWithGas,
        PermeabilityToOil,
        CapillaryPressureOfGas,
        // Items of tables of fluids.
        Pressure,
        ContentOfGas,
        VolumeOfOil,
        VolumeOfGas,
        VolumeOfWater,
        ViscosityOfOil,
        ViscosityOfGas,
        ViscosityOfWater,
        // Items of an equilibrium.
        DepthOfDatum,
        PressureOfDatum,
        ContactOfWater,
        ContactOfGas,
        TableOfDissolvedGas,
        // Fractions of components, a list of them.
        Fractions,
        // Items of wells.
        NameOfWell,
        DepthOfWell,
        LimitOfProduction,
        LimitOfInjection,
        HeadI,
        HeadJ,
        ConnectionI,
        ConnectionJ,
        ConnectionFirstK,
        ConnectionLastK,
        // The item that names an array.
        NameOfArray,
        // What no check knows: for those who show what is in a deck.
        Porosity,
        Permeability,
        ProductionOfWell,
        InjectionOfWell,
        StatusOfWell,
        CellOfStatus,
    };
    /// Whether checks of physics know it.
    static bool IsChecked(Enum role) { return role < Porosity; }
    /// The rows in the order of the values; never freed.
    static const std::vector<Service::EnumInfo<PhysicalRole>>& EnumInfos();
    /// Only `found` says that there is none of the name.
    static Enum FromString(const std::string& name, bool* found);
};

} // namespace Veld::Quor::Core::Decks
