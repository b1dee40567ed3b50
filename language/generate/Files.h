#pragma once

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

/// The whole text of a file.
inline std::string ReadText(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream)
        throw std::runtime_error(path + ": can't be read");
    return text;
}

inline void WriteText(const std::string& path, std::string_view text)
{
    std::ofstream stream(path, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error(path + ": can't be written");
}
