#include "tests/support/Cases.h"

#include <sstream>
#include <stdexcept>
#include <string_view>

namespace Veld::Quor::Tests {

namespace {

/// The character after the backslash at `at`, which moves to the end of it.
char Unescape(const std::string& text, std::size_t& at)
{
    const char kind = text.at(++at);
    if (kind == 'x') {
        at += 2;
        return static_cast<char>(std::stoi(text.substr(at - 1, 2), nullptr, 16));
    }
    constexpr std::string_view kinds("nrt0\\");
    const std::size_t found = kinds.find(kind);
    if (found == std::string_view::npos)
        throw std::runtime_error("unknown escape in a table: " + text);
    return std::string_view("\n\r\t\0\\", 5)[found];
}

std::string Unescaped(const std::string& text)
{
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at)
        plain += text[at] == '\\' ? Unescape(text, at) : text[at];
    return plain;
}

Row ReadRow(const std::string& line)
{
    const std::size_t colon = line.find(": ");
    if (colon == std::string::npos)
        throw std::runtime_error("no name in a table: " + line);
    std::vector<std::string> cells;
    for (const std::string& cell : Split(line.substr(colon + 2), " =>"))
        cells.push_back(Unescaped(cell.substr(!cells.empty() && cell.starts_with(' ') ? 1 : 0)));
    if (cells.size() > 3)
        throw std::runtime_error("too many cells in a table: " + line);
    cells.resize(3);
    const auto name = Split(line.substr(0, colon), " (");
    return {
        name[0], cells[0], cells[1], cells[2], name.size() > 1 ? name[1].substr(0, name[1].size() - 1) : ""};
}

} // namespace

std::vector<std::string> Split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != std::string::npos;
         start = end + separator.size())
        parts.push_back(text.substr(start, end - start));
    parts.push_back(text.substr(start));
    return parts;
}

std::vector<Row> Rows(const std::string& table)
{
    constexpr std::string_view indent = "    ";
    std::vector<std::string> cases;
    std::istringstream lines(table.substr(1)); // begins with a line end
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(indent))
            cases.push_back(line);
        else
            cases.back() += (cases.back().ends_with(" =>") ? ' ' : '\n') + line.substr(indent.size());
    }
    std::vector<Row> rows;
    for (const std::string& line : cases)
        rows.push_back(ReadRow(line));
    return rows;
}

} // namespace Veld::Quor::Tests
