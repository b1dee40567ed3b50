#pragma once

#include "quor/lint/Document.h"

#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// A start tag in a text.
struct ScannedTag {
    Span span; ///< from the bracket to the end of the name
    std::string_view name;
    std::vector<Span> names; ///< of its attributes
    std::vector<Span> values; ///< of the same, without quotes
};

/// Finds the start tags of a well-formed text in an encoding that extends ASCII. In any other text the result
/// is unspecified, but the scan ends.
class TagScanner {
public:
    explicit TagScanner(std::string_view text)
        : text_(text)
    {
    }

    /// False at the end.
    bool Next(ScannedTag& tag);

private:
    void SkipPast(std::string_view end);
    Span TakeUntil(std::string_view stops);

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace Veld::Quor::Core::Lint
