#include "tests/tools/RunProgram.h"

#include "tests/support/Documents.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <iterator>

namespace Veld::Quor::Tests {

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

Outcome RunShell(const std::string& command, const std::string& environment)
{
    const TemporaryDirectory folder;
    const std::string errors = (folder.Path() / "errors").string();
    const std::string whole = "unset " + std::string(mainVariable) + " " + trustedVariable + "; export "
        + environment + " QUOR=" + Quote(QUOR_PROGRAM) + "; { " + command + "\n} 2>" + Quote(errors);
    std::FILE* const pipe = ::popen(whole.c_str(), "r");
    std::string out;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        out.append(buffer, count);
    const int status = ::pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out, ReadFile(errors)};
}

Outcome RunQuor(const std::string& arguments, const std::string& environment)
{
    return RunShell("\"$QUOR\" " + arguments, environment);
}

Outcome RunOn(const std::string& language, const std::string& arguments)
{
    const TemporaryDirectory folder;
    const std::string document = folder.Write("main.xml", Document(language));
    folder.Write("trusted/none.xml", Document(""));
    return RunQuor(arguments,
        std::string(mainVariable) + "=" + Quote(document) + " " + trustedVariable + "="
            + Quote((folder.Path() / "trusted").string()));
}

std::string Quote(const std::string& text)
{
    return "'" + text + "'";
}

bool Holds(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

} // namespace Veld::Quor::Tests
