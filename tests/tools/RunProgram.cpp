#include "tests/tools/RunProgram.h"

#include "tests/support/Documents.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>

namespace Veld::Quor::Tests {

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::pair<const char*, const char*> commonParts[] = {
    {"{runspec}", "RUNSPEC\nDIMENS\n 2 2 1 /\nOIL\nSTART\n 1 JAN 2020 /\n"},
    {"{schedule}", "SCHEDULE\nWELSPECS\n P1 G1 1 1 1* OIL /\n P2 G1 2 2 1* OIL /\n/\n"},
    {"{control}", "WCONPROD\n P* OPEN ORAT 5 /\n/\nWCONINJE\n P2 WATER OPEN RATE 5 /\n/\n"},
    {"{completions}", "COMPDAT\n P1 1 1 1 3 /\n/\nCOMPDAT\n P1 1 1 1 3 SHUT /\n P1 1 2 5 5 /\n/\n"}};

/// A deck in which {runspec} and the like stand for parts that many have.
std::string Whole(std::string deck)
{
    for (const auto& [name, text] : commonParts) {
        if (const std::size_t at = deck.find(name); at != std::string::npos)
            deck.replace(at, std::string_view(name).size(), text);
    }
    return deck;
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

Outcome Analyse(
    const std::string& arguments, const std::string& a, const std::string& b, const std::string& environment)
{
    const TemporaryDirectory folder;
    folder.Write("a.data", Whole(a));
    folder.Write("b.data", Whole(b));
    return RunShell("cd " + Quote(folder.Path().string()) + "; \"$QUOR\" " + arguments, environment);
}

} // namespace Veld::Quor::Tests
