#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace Veld::Quor::Tests {

namespace fs = std::filesystem;
using namespace Core::Keywords;

TemporaryDirectory::TemporaryDirectory()
{
    std::string pattern = (fs::temp_directory_path() / "quor-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary directory");
    path_ = pattern;
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TemporaryDirectory::Write(const std::string& name, std::string_view bytes) const
{
    std::string path = (path_ / name).string();
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

ScopedVariable::ScopedVariable(const char* name, const std::string& value)
    : name_(name)
{
    ::setenv(name_, value.c_str(), 1);
}

ScopedVariable::~ScopedVariable()
{
    ::unsetenv(name_);
}

LoadedTable::LoadedTable(const std::string& main, const std::string& trusted)
    : main_(mainVariable, directory_.Write("main.xml", Document(main)))
    , trusted_(trustedVariable,
          fs::path(directory_.Write("trusted/trusted.xml", Document(trusted))).parent_path().string())
{
    KeywordSyntaxTable::Instance(true, false);
    table_ = &KeywordSyntaxTable::Instance();
}

LoadedTable::~LoadedTable()
{
    KeywordSyntaxTable::Instance(true, false);
}

const IKeywordSyntax& LoadedTable::Get(const std::string& name) const
{
    if (const IKeywordSyntax* syntax = table_->Lookup(name, true))
        return *syntax;
    throw std::runtime_error("no keyword " + name);
}

std::string LoadFailureOf(const std::string& main)
{
    try {
        const LoadedTable table(main);
        return "loaded";
    } catch (const std::exception& error) {
        return error.what();
    }
}

std::string KeywordElement(const std::string& name, const std::string& content)
{
    return "<keyword name=\"" + name + "\">" + content + "</keyword>\n";
}

std::string Document(std::string_view body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<keywords>\n" + std::string(body) + "\n</keywords>\n";
}

} // namespace Veld::Quor::Tests
