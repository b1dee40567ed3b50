#pragma once

#include <string>

namespace Veld::Quor::Tests {

/// What the program that packs the language makes of files of a text each; empty: there is no such file.
struct LanguageFiles {
    std::string document; ///< keywords
    std::string pieces;
    std::string vectors; ///< lines of vectors.txt
    std::string arrays; ///< lines of arrays.txt
    std::string units = {}; ///< lines of units.txt
    std::string measurements = {}; ///< lines of measurements.txt
};

/// The document that is made, without its outer elements and with nothing between the others; or the message
/// of the program, without the name of its folder. A `~` ends a line of the files. The text of an XML file
/// starts in the line 3.
std::string Pack(const LanguageFiles& files);

} // namespace Veld::Quor::Tests
