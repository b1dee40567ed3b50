#pragma once

#include <map>
#include <string>
#include <vector>

/// The unit of a measurement in one system.
struct UnitInSystem {
    std::string name; ///< as users read it
    double factor = 0; ///< value in SI = value * factor + offset; 0: another value tells which unit it is
    double offset = 0;
};

/// By measurement its unit in METRIC, FIELD, LAB and PVT-M; none if no unit is certain.
using Measurements = std::map<std::string, std::vector<UnitInSystem>>;

/// Reads the tables of units and of measurements, which language/units/README.md describes.
Measurements ReadMeasurements(const std::string& unitsPath, const std::string& measurementsPath);
