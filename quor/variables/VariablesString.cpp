#include "quor/variables/VariablesString.h"

namespace Veld::Quor::Core::Keywords {

namespace {

constexpr char variableMark = '$';
constexpr const char* delimiters = "$ \t\n.*\\/"; // Wanted: a carriage return is none.

/// Follows comments through a text: from the second of two hyphens to the end of the line.
class CommentScan {
public:
    /// Accepts the next character; returns whether it is in a comment, or opens or ends one.
    bool Take(char c)
    {
        const bool endsLine = c == '\n' || c == '\r';
        const bool opens = !inComment_ && c == '-' && previous_ == '-';
        const bool was = inComment_;
        inComment_ = opens || (inComment_ && !endsLine);
        previous_ = c;
        return was || opens;
    }

private:
    bool inComment_ = false;
    char previous_ = '\0';
};

} // namespace

VariablesString::VariablesString() = default;

VariablesString::VariablesString(const std::string& text)
    : text_(text)
{
    if (text_.find(variableMark) != std::string::npos)
        Parse();
}

VariablesString::VariablesString(const VariablesString&) = default;
VariablesString::VariablesString(VariablesString&&) noexcept = default;
VariablesString& VariablesString::operator=(const VariablesString&) = default;
VariablesString& VariablesString::operator=(VariablesString&&) noexcept = default;
VariablesString::~VariablesString() = default;

bool VariablesString::ContainsVariables(const std::string& text)
{
    if (text.find(variableMark) == std::string::npos)
        return false;
    CommentScan scan;
    for (const char c : text) {
        if (!scan.Take(c) && c == variableMark)
            return true;
    }
    return false;
}

void VariablesString::Parse()
{
    CommentScan scan;
    for (std::string::size_type at = 0; at < text_.size();) {
        if (scan.Take(text_[at]) || text_[at] != variableMark) {
            ++at;
            continue;
        }
        const auto end = text_.find_first_of(delimiters, at + 1);
        std::string variable = text_.substr(at, end == std::string::npos ? end : end - at);
        if (variable.size() > 1)
            variables_.push_back(std::move(variable));
        // The scan continues at the delimiter, so hyphens within a variable open no comment. Wanted: without
        // a delimiter it continues after the "$".
        at = end == std::string::npos ? at + 1 : end;
    }
}

} // namespace Veld::Quor::Core::Keywords
