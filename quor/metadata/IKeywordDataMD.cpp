#include "quor/metadata/IKeywordDataMD.h"

#include "quor/foundation/service/EnumInfo.h"

namespace Veld::Quor::Core::Keywords {

namespace {

template <class T>
using Rows = std::vector<Service::EnumInfo<T>>;

const Rows<IKeywordDataMD::MDType>& TypeRows()
{
    using T = IKeywordDataMD::MDType;
    static const auto& rows = *new Rows<T>{{T::None, "None"}, {T::Assignment, "Assignment"},
        {T::Boolean, "Boolean"}, {T::Choice, "Choice"}, {T::Integer, "Integer"}, {T::Line, "Line"},
        {T::List, "List"}, {T::Map, "Map"}, {T::Raw, "Raw"}, {T::Real, "Real"}, {T::Record, "Record"},
        {T::String, "String"}};
    return rows;
}

const Rows<IKeywordDataMD::TerminationType>& TerminationRows()
{
    using T = IKeywordDataMD::TerminationType;
    static const auto& rows =
        *new Rows<T>{{T::NONE, "NONE"}, {T::SLASH, "SLASH"}, {T::EOL, "EOL"}, {T::CUSTOMIZED, "CUSTOMIZED"}};
    return rows;
}

const Rows<IKeywordDataMD::ColumnConstraintType>& ColumnConstraintRows()
{
    using T = IKeywordDataMD::ColumnConstraintType;
    static const auto& rows = *new Rows<T>{{T::StrictlyIncreasing, "strictly_increasing"},
        {T::StrictlyDecreasing, "strictly_decreasing"}, {T::Increasing, "increasing"},
        {T::Decreasing, "decreasing"}};
    return rows;
}

} // namespace

const std::string& IKeywordDataMD::MDType::ToString(Enum value)
{
    return Service::FindText(TypeRows(), value);
}

IKeywordDataMD::TerminationType::Enum IKeywordDataMD::TerminationType::FromString(
    const std::string& name, bool* found)
{
    return Service::FindByText(TerminationRows(), name, found);
}

IKeywordDataMD::TerminationType::Enum IKeywordDataMD::TerminationType::FromString(
    const char* name, bool* found)
{
    return Service::FindByText(TerminationRows(), name, found);
}

const std::string& IKeywordDataMD::TerminationType::ToString(Enum value)
{
    return Service::FindText(TerminationRows(), value);
}

IKeywordDataMD::ColumnConstraintType::Enum IKeywordDataMD::ColumnConstraintType::FromString(
    const std::string& name, bool* found)
{
    return Service::FindByText(ColumnConstraintRows(), name, found);
}

IKeywordDataMD::ColumnConstraintType::Enum IKeywordDataMD::ColumnConstraintType::FromString(
    const char* name, bool* found)
{
    return Service::FindByText(ColumnConstraintRows(), name, found);
}

const std::string& IKeywordDataMD::ColumnConstraintType::ToString(Enum value)
{
    return Service::FindText(ColumnConstraintRows(), value);
}

} // namespace Veld::Quor::Core::Keywords
