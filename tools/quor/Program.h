#pragma once

namespace Veld::Quor::Tools {

/// The whole program: never throws.
int RunProgram(int argc, char** argv);

} // namespace Veld::Quor::Tools
