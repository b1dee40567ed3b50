#include "quor/foundation/LibProperties.h"

#include <iterator>

// Given by the build, from the one place that has the version.
#ifndef VELD_QUOR_VERSION
#error "VELD_QUOR_VERSION is not defined"
#endif

namespace Veld::Quor::Core::Keywords {

namespace {

constexpr const char* libraryName = "libveld-quor-keywords";

constexpr struct {
    const char* name;
    const char* value;
} properties[] = {
    {"CompanyName", "Veld"},
    {"FileVersion", VELD_QUOR_VERSION ".0"},
    {"FileDescription", "Keyword library of a family of reservoir simulators"},
    {"ProductVersion", "main/" VELD_QUOR_VERSION},
    {"InternalName", libraryName},
    {"LegalCopyright", "Copyright (c) 2026 Veld"},
    {"OriginalFilename", libraryName},
};

} // namespace

void getLibProperty(int index, const char*& name, const char*& value)
{
    const bool known = index >= 0 && index < getNumLibProperties();
    name = known ? properties[index].name : "";
    value = known ? properties[index].value : "";
}

int getNumLibProperties()
{
    return static_cast<int>(std::size(properties));
}

} // namespace Veld::Quor::Core::Keywords
