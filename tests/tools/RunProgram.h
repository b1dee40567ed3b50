#pragma once

#include <string>

namespace Veld::Quor::Tests {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

/// Runs a command of the shell in which $QUOR is the program; `environment` holds assignments.
Outcome RunShell(const std::string& command, const std::string& environment = {});

/// Runs the program on the built-in documents.
Outcome RunQuor(const std::string& arguments, const std::string& environment = {});

/// Runs the program on a main document that holds `language` below its root.
Outcome RunOn(const std::string& language, const std::string& arguments);

/// Runs a command in a folder that has the two decks. In these, {runspec} and the like stand for parts that
/// many decks have.
Outcome Analyse(const std::string& arguments, const std::string& a, const std::string& b = {},
    const std::string& environment = {});

std::string Quote(const std::string& text);
bool Holds(const std::string& text, const std::string& part);

} // namespace Veld::Quor::Tests
