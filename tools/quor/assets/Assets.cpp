#include "tools/quor/assets/Assets.h"

#include <zstd.h>

#include <algorithm>
#include <stdexcept>

namespace Veld::Quor::Tools {

std::string Asset(std::string_view name)
{
    const PackedAsset* const end = packedAssets + packedAssetCount;
    const PackedAsset* const found =
        std::find_if(packedAssets, end, [&](const PackedAsset& asset) { return asset.name == name; });
    if (found == end)
        throw std::logic_error("no file was packed as '" + std::string(name) + "'");
    std::string text(ZSTD_getFrameContentSize(found->bytes, found->size), '\0');
    if (ZSTD_decompress(text.data(), text.size(), found->bytes, found->size) != text.size())
        throw std::logic_error("the packed file '" + std::string(name) + "' is damaged");
    return text;
}

} // namespace Veld::Quor::Tools
