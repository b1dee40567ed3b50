#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <vector>

namespace Veld::Quor::Tests {

/// Names a row of a table by its member `name`.
template <class Case>
std::string CaseName(const testing::TestParamInfo<Case>& row)
{
    return row.param.name;
}

/// The parts of a text; one, if the separator isn't in it.
std::vector<std::string> Split(const std::string& text, const std::string& separator);

/// A case of a table.
struct Row {
    std::string name;
    std::string text;
    std::string expected;
    std::string more = {};
    std::string options = {};
};

/// Reads a table with a case a line, `Name: text => expected => more` or `Name (options): ...`, of which the
/// cells at the end may be missing. Lines after four blanks are more lines of the last cell. Blanks within
/// count, and \n, \r, \t, \0, \\ and \xHH are what they are in C++.
std::vector<Row> Rows(const std::string& table);

/// The text of the exception that `use` throws; empty if it throws none.
template <class Use>
std::string ReasonOf(Use use)
{
    try {
        use();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

} // namespace Veld::Quor::Tests
