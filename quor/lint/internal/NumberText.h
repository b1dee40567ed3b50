#pragma once

#include <string>

namespace Veld::Quor::Core::Lint {

/// A text as a number.
struct Number {
    double value = 0; ///< what the loader reads
    bool isClean = false; ///< the text is that number and nothing else, in decimal
    bool isMark = false; ///< the loader reads the library's mark for no value
    bool hasRest = false; ///< the loader ignores the end of the text
};

Number ReadReal(const std::string& text);
Number ReadInteger(const std::string& text);

} // namespace Veld::Quor::Core::Lint
