// Puts the files of a syntax document together and packs them into a C++ source.
//
//   pack OUTPUT.cpp VARIABLE FILE.xml...
//
// Each file is a document of its own, in UTF-8; the packed document has their root elements, in the order
// given, under one root. A file that is not well formed ends the build with its name, line and column.

#include "quor/foundation/service/xml/XMLDocument.h"

#include <zstd.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::string ReadText(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream)
        throw std::runtime_error(path + ": can't be read");
    return text;
}

/// What follows the XML declaration, which can't stand in the middle of a document.
std::string_view Body(const std::string& path, std::string_view text)
{
    constexpr std::string_view declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";
    if (text.substr(0, declaration.size()) != declaration)
        throw std::runtime_error(path + ":1:1: the file must start with " + std::string(declaration));
    return text.substr(declaration.size());
}

std::string PutTogether(const std::vector<std::string>& paths)
{
    std::string document = "<keywords>";
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

void WriteSource(const std::string& path, const std::string& variable, const std::string& packed)
{
    std::ofstream stream(path);
    stream << "#include \"quor/foundation/builtin/internal/PackedDocument.h\"\n\n"
           << "namespace Veld::Quor::Core::KeywordSyntax::Internal {\n\n"
           << "static constexpr unsigned char bytes[] = {";
    for (std::size_t i = 0; i < packed.size(); ++i)
        stream << (i % 32 == 0 ? "\n" : "") << int(static_cast<unsigned char>(packed[i])) << ',';
    stream << "\n};\n\nconst PackedDocument " << variable << " = {bytes, sizeof bytes};\n\n"
           << "} // namespace Veld::Quor::Core::KeywordSyntax::Internal\n";
    if (!stream.flush())
        throw std::runtime_error(path + ": can't be written");
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 4) {
        std::cerr << "usage: pack OUTPUT.cpp VARIABLE FILE.xml...\n";
        return 2;
    }
    WriteSource(argv[1], argv[2], Compress(PutTogether({argv + 3, argv + argc})));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
