#include "quor/foundation/service/FileName.h"

#include <filesystem>

namespace Veld::Quor::Core::Service {

namespace fs = std::filesystem;

FileName::FileName(const std::string& name)
    : Directory(fs::path(name).parent_path().string())
    , name_(fs::path(name).filename().string())
{
}

FileName::FileName(const FileName&) = default;
FileName& FileName::operator=(const FileName&) = default;
FileName::~FileName() = default;

std::string FileName::GetFullName() const
{
    return (fs::path(GetPath()) / name_).string();
}

} // namespace Veld::Quor::Core::Service
