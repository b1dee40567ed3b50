#pragma once

#include "quor/foundation/Export.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// A text with variables in it: words that start with "$" and end before a "$", a space, a tab, a line feed,
/// a dot, an asterisk, a slash or a backslash. What is after two hyphens, up to the end of the line, is a
/// comment and holds none.
class VELD_QUOR_EXPORT VariablesString {
public:
    VariablesString();
    /// Copies the text and finds its variables.
    explicit VariablesString(const std::string& text);
    VariablesString(const VariablesString&);
    VariablesString(VariablesString&&) noexcept;
    VariablesString& operator=(const VariablesString&);
    VariablesString& operator=(VariablesString&&) noexcept;
    ~VariablesString();

    /// The text as it was given.
    const std::string& GetString() const { return text_; }

    /// The variables with their "$", in the order of the text, as often as they occur.
    const std::vector<std::string>& GetVariables() const { return variables_; }

    /// Whether there is a "$" outside comments: cheap, and looser than `GetVariables`, which finds nothing in
    /// a lone "$".
    static bool ContainsVariables(const std::string& text);

private:
    void Parse();

    std::string text_;
    std::vector<std::string> variables_;
};

} // namespace Veld::Quor::Core::Keywords
