#pragma once

#include <ostream>
#include <string>

/// `text` as a zstd frame. Throws `std::runtime_error` if that fails.
std::string Compress(const std::string& text);

/// `static constexpr unsigned char NAME[] = {...};`, on lines of their own.
void WriteBytes(const std::string& name, const std::string& bytes, std::ostream& source);

/// The same as a literal, which compiles in a hundredth of the time, with a NUL at its end, and so that
/// numbers may be read where they are.
void WriteLiteral(const std::string& name, const std::string& bytes, std::ostream& source);
