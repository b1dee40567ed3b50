#pragma once

#include "quor/foundation/service/EnumInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What a keyword, or one of its items, is to those who follow and judge a deck. They know these alone, no
/// keyword.
struct Role {
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
        // What no check of physics knows: for those who follow a deck, and show what is in it.
        Porosity,
        Permeability,
        ProductionOfWell,
        InjectionOfWell,
        StatusOfWell,
        CellOfStatus,
        // Keywords that say what run it is, and when.
        Title,
        StartOfRun,
        DatesOfSteps,
        LengthsOfSteps,
        TimesOfSteps,
        RestartedRun,
        AliasesOfPaths,
        MayBeAlone,
        SizeOfGrid,
        SizeOfGridAgain,
        // Boxes of cells, and what works on arrays in them or in regions.
        Box,
        EndOfBox,
        FirstI,
        LastI,
        FirstJ,
        LastJ,
        FirstK,
        LastK,
        ArrayIsSet,
        ArrayIsAddedTo,
        ArrayIsMultiplied,
        ArrayIsLimitedFromBelow,
        ArrayIsLimitedFromAbove,
        ArrayIsCopied,
        ArrayIsChangedOtherwise,
        ArrayThatIsCopied,
        ValueForArray,
        Region,
        FamilyOfRegion,
        RegionsM,
        RegionsF,
        RegionsO,
        // Wells and groups.
        WellThatBegins,
        GroupOfWell,
        WellThatIsCompleted,
        CompletionI,
        CompletionJ,
        CompletionFirstK,
        CompletionLastK,
        WellThatIsControlled,
        ControlOfWell,
        InjectedFluid,
        WellThatOpensOrShuts,
        GroupInTheTree,
        GroupAbove,
        // For those who show what is in a deck.
        ChangedTarget,
        NewTarget,
        TargetsOfGroup,
        DepthOfTable,
        AxisOfLift,
        ValuesOfLift,
    };
    /// Whether checks of physics know it.
    static bool IsChecked(Enum role) { return role < Porosity; }
    /// The rows in the order of the values; never freed.
    static const std::vector<Service::EnumInfo<Role>>& EnumInfos();
    /// Only `found` says that there is none of the name.
    static Enum FromString(const std::string& name, bool* found);
};

} // namespace Veld::Quor::Core::Decks
