#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Veld::Quor::Tools {

/// A file that the build packed into the program, as a zstd frame.
struct PackedAsset {
    const char* name;
    const unsigned char* bytes;
    std::size_t size;
};

extern const PackedAsset* const packedAssets;
extern const std::size_t packedAssetCount;

/// The text of a file that is listed in `tools/quor/assets/CMakeLists.txt`. Throws `std::logic_error` for
/// another name.
std::string Asset(std::string_view name);

} // namespace Veld::Quor::Tools
