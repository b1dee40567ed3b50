#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

/// A position in a file of the language; line and column count from 1.
struct Place {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;

    std::string Text() const { return file + ":" + std::to_string(line) + ":" + std::to_string(column); }
};

/// Ends the build: `message` says what is wrong there and what to do.
[[noreturn]] inline void Fail(const Place& at, const std::string& message)
{
    throw std::runtime_error(at.Text() + ": " + message);
}
