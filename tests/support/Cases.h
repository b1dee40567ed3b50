#pragma once

#include <gtest/gtest.h>

#include <string>

namespace Veld::Quor::Tests {

/// Names a row of a table by its member `name`.
template <class Case>
std::string CaseName(const testing::TestParamInfo<Case>& row)
{
    return row.param.name;
}

} // namespace Veld::Quor::Tests
