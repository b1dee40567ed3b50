#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>

namespace Veld::Quor::Tests {

/// Names a row of a table by its member `name`.
template <class Case>
std::string CaseName(const testing::TestParamInfo<Case>& row)
{
    return row.param.name;
}

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
