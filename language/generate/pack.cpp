// Puts the files of a syntax document together and packs them into a C++ source.
//
//   pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml...
//
// Each file is a document of its own, in UTF-8; the packed document, which OUTPUT.xml holds as it is, has
// their root elements, in the order given, under one root. A file that is not well formed ends the build with
// its name, line and column.

#include "language/generate/Files.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <zstd.h>

#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

/// What follows the XML declaration, which can't stand in the middle of a document.
std::string_view Body(const std::string& path, std::string_view text)
{
    if (text.substr(0, declaration.size()) != declaration)
        throw std::runtime_error(path + ":1:1: the file must start with " + std::string(declaration));
    return text.substr(declaration.size());
}

std::string PutTogether(const std::vector<std::string>& paths)
{
    std::string document = std::string(declaration) + "\n<keywords>";
    for (const std::string& path : paths) {
        const std::string text = ReadText(path);
        if (!Veld::Quor::Core::Service::XML::XMLDocument().readMemory(text.data(), text.size(), path.c_str()))
            throw std::runtime_error(path + ": no well-formed document");
        document += Body(path, text);
    }
    return document + "</keywords>\n";
}

std::string Compress(const std::string& text)
{
    std::string packed(ZSTD_compressBound(text.size()), '\0');
    const std::size_t size =
        ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), ZSTD_maxCLevel());
    if (ZSTD_isError(size))
        throw std::runtime_error(ZSTD_getErrorName(size));
    packed.resize(size);
    return packed;
}

std::string SourceOf(const std::string& variable, const std::string& packed)
{
    std::ostringstream source;
    source << "#include \"quor/foundation/builtin/internal/PackedDocument.h\"\n\n"
           << "namespace Veld::Quor::Core::KeywordSyntax::Internal {\n\n"
           << "static constexpr unsigned char bytes[] = {";
    for (std::size_t i = 0; i < packed.size(); ++i)
        source << (i % 32 == 0 ? "\n" : "") << int(static_cast<unsigned char>(packed[i])) << ',';
    source << "\n};\n\nconst PackedDocument " << variable << " = {bytes, sizeof bytes};\n\n"
           << "} // namespace Veld::Quor::Core::KeywordSyntax::Internal\n";
    return source.str();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 5) {
        std::cerr << "usage: pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml...\n";
        return 2;
    }
    const std::string document = PutTogether({argv + 4, argv + argc});
    WriteText(argv[2], document);
    WriteText(argv[1], SourceOf(argv[3], Compress(document)));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
