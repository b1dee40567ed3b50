#include "tools/quor/Program.h"

int main(int argc, char** argv)
{
    return Veld::Quor::Tools::RunProgram(argc, argv);
}
