// Packs files into a C++ source, from which `Asset` unpacks them:
//
//   pack-assets OUTPUT.cpp NAME=FILE...

#include "language/generate/Files.h"
#include "language/generate/PackedSource.h"

#include <exception>
#include <iostream>
#include <sstream>
#include <string>

namespace {

std::string AssetsSource(int count, char** pairs)
{
    std::ostringstream source;
    std::ostringstream table;
    source << "#include \"tools/quor/assets/Assets.h\"\n\nnamespace Veld::Quor::Tools {\n\n";
    for (int i = 0; i < count; ++i) {
        const std::string pair = pairs[i];
        const std::size_t sign = pair.find('=');
        const std::string variable = "asset" + std::to_string(i);
        WriteBytes(variable, Compress(ReadText(pair.substr(sign + 1))), source);
        table << "    {\"" << pair.substr(0, sign) << "\", " << variable << ", sizeof " << variable << "},\n";
    }
    source << "\nstatic constexpr PackedAsset assets[] = {\n"
           << table.str() << "};\n\nconst PackedAsset* const packedAssets = assets;\n"
           << "const std::size_t packedAssetCount = " << count << ";\n\n} // namespace Veld::Quor::Tools\n";
    return source.str();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 3) {
        std::cerr << "usage: pack-assets OUTPUT.cpp NAME=FILE...\n";
        return 2;
    }
    WriteText(argv[1], AssetsSource(argc - 2, argv + 2));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
