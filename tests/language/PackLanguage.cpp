#include "tests/language/PackLanguage.h"

#include "tests/support/Documents.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>

namespace Veld::Quor::Tests {

namespace {

const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Lines(const std::string& text)
{
    return std::regex_replace(text, std::regex("~"), "\n");
}

std::string InElement(const std::string& tag, const std::string& text)
{
    return declaration + "<" + tag + ">\n" + Lines(text) + "\n</" + tag + ">\n";
}

std::string Shortened(const std::string& document)
{
    static const std::regex around("^[^]*?<keywords>(?:<!--[^]*?-->)?<keywords>|</keywords></keywords>$");
    static const std::regex lineEnd("\n *");
    return std::regex_replace(std::regex_replace(document, lineEnd, ""), around, "");
}

} // namespace

std::string Pack(const LanguageFiles& files)
{
    const TemporaryDirectory directory;
    std::string command =
        "cd '" + directory.Path().string() + "' && '" QUOR_PACK_LANGUAGE "' out.cpp out.xml x";
    const auto write = [&](const std::string& name, const std::string& text) {
        directory.Write(name, text);
        command += " " + name;
    };
    if (!files.pieces.empty())
        write("pieces.xml", InElement("pieces", files.pieces));
    if (!files.document.empty())
        write("document.xml", InElement("keywords", files.document));
    command += " --vectors";
    if (!files.vectors.empty())
        write("vectors.txt", Lines(files.vectors));
    command += " --arrays";
    if (!files.arrays.empty())
        write("arrays.txt", Lines(files.arrays));
    if (!files.units.empty()) {
        command += " --units";
        write("units.txt", Lines(files.units));
        write("measurements.txt", Lines(files.measurements));
    }
    if (std::system((command + " 2>errors").c_str()) == 0)
        return Shortened(ReadFile(directory.Path() / "out.xml"));
    return (exists(directory.Path() / "out.xml") ? "made and refused " : "")
        + ReadFile(directory.Path() / "errors");
}

} // namespace Veld::Quor::Tests
