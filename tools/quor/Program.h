#pragma once

namespace Veld::Quor::Tools {

/// What the program says of its work by its exit status.
enum ExitStatus : int {
    Success = 0,
    HasFindings = 1, ///< or differences, or losses, or a keyword is not known
    Failure = 2, ///< wrong usage, or something could not be read or written
};

/// The whole program: never throws.
int RunProgram(int argc, char** argv);

} // namespace Veld::Quor::Tools
