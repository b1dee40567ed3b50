// The load of a table, beside a parse of the same text to a DOM, and nothing else.

#include "benchmarks/support/Comparison.h"
#include "benchmarks/syntax/Document.h"
#include "quor/Keywords.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace Veld::Quor::Benchmarks {

using namespace Core;

namespace {

void Parse(const std::string& text)
{
    const xercesc::MemBufInputSource source(
        reinterpret_cast<const XMLByte*>(text.data()), text.size(), "document");
    xercesc::XercesDOMParser parser;
    parser.parse(source);
    Keep(parser.getDocument());
}

double SecondsOfLoad()
{
    Keywords::KeywordSyntaxTable::Instance(true, false);
    return SecondsOf([] { Keywords::KeywordSyntaxTable::Instance(); });
}

std::string TextOf(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(std::string("can't read ") + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CompareLoad(const char* path, const std::string& text, double keywords, double goal)
{
    Compare({path, "Xerces-C++ to a DOM, no more", goal, "us", keywords, SecondsOfLoad,
        [&text] { return SecondsOf([&text] { Parse(text); }); }});
}

} // namespace

void CompareLoads()
{
    if (!IsWanted({"load: built-in, a keyword", "load: file, a keyword"}))
        return;
    Service::XML::Initialise::Init();
    ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
    CompareLoad("load: built-in, a keyword", TextOf(QUOR_MAIN_DOCUMENT), 4000, 0.12);
    constexpr int keywords = 8000; // 20 MB
    const DocumentFile file(keywords);
    ::setenv("QUOR_KEYWORD_SYNTAX_FILE", file.Path().c_str(), 1);
    CompareLoad("load: file, a keyword", TextOf(file.Path().c_str()), keywords, 0.35);
    ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
    Keywords::KeywordSyntaxTable::Instance(true, false);
}

} // namespace Veld::Quor::Benchmarks
