#include "language/generate/PackedSource.h"

#include <zstd.h>

#include <cctype>
#include <cstddef>
#include <stdexcept>

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

void WriteBytes(const std::string& name, const std::string& bytes, std::ostream& source)
{
    source << "static constexpr unsigned char " << name << "[] = {";
    for (std::size_t i = 0; i < bytes.size(); ++i)
        source << (i % 32 == 0 ? "\n" : "") << int(static_cast<unsigned char>(bytes[i])) << ',';
    source << "\n};\n";
}

void WriteLiteral(const std::string& name, const std::string& bytes, std::ostream& source)
{
    source << "alignas(8) static constexpr unsigned char " << name << "[] = ";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (i % 64 == 0)
            source << (i == 0 ? "\n\"" : "\"\n\"");
        if (std::isalnum(byte) || byte == ' ')
            source << bytes[i];
        else
            source << '\\' << char('0' + (byte >> 6)) << char('0' + (byte >> 3 & 7))
                   << char('0' + (byte & 7));
    }
    source << "\";\n";
}
