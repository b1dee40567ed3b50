// Bytes become a document: as they are, or, so that not all end at the parser, as elements of the language
// that they choose. What the parser takes is loaded as the main syntax document and looked up, and data are
// made of it. Whatever the bytes are, they are linted.

#include "quor/Keywords.h"
#include "quor/lint/Lint.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

using namespace Veld::Quor::Core;

namespace {

constexpr const char* elements[] = {"keyword", "data", "record", "item", "list", "map", "raw", "assignment",
    "integer", "real", "string", "boolean", "choice", "line", "values", "value", "default", "override", "min",
    "max", "quantity", "format", "validity", "unsupportedBy", "aliases", "alias", "isHidden", "isHiddenAlias",
    "isGeneric", "validSimulators", "validOptions", "validSections", "simulator", "option", "section",
    "precedents", "precedent", "description", "documentation", "customReadTermination", "stringTermination",
    "lengthLimit", "skippableOnRead", "caseSensitive"};
constexpr const char* attributes[] = {" name=\"A\"", " name=\"AB*\"", " name=\"ABC\"", " name=\"*\"",
    " name=\"\"", " id=\"A\"", " name=\"Wend\" gridEditsOnly=\"true\"", " name=\"Sedge\"", " name=\"GRID\"",
    " name=\"SUMMARY\"", " value=\"Thermal\"", " supportLevel=\"ignored\"", " termination=\"SLASH\"",
    " termination=\"EOL\"", " type=\"specified\" val=\"1\"", " type=\"calculated\"", " val=\"-1e400\"",
    " val=\"2147483648\"", " size=\"3\"", " minSize=\"-1\"", " maxSize=\"9\"", " itemsDefaultable=\"true\"",
    " columnConstraint=\"x\"", " identifier=\"true\"", " optional=\"true\"", " string=\"A\"",
    " wildcard=\"A\""};

template <class T, std::size_t Size>
T Choose(T (&rows)[Size], std::uint8_t byte)
{
    return rows[byte % Size];
}

/// A well-formed document: each byte opens an element with an attribute that the next one chooses, or closes
/// one.
std::string Compose(std::string_view bytes)
{
    std::string text = "<keywords>\n";
    std::vector<const char*> open;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<std::uint8_t>(bytes[i]);
        const auto second = static_cast<std::uint8_t>(bytes[i + 1]);
        if (first >= 0x80 && !open.empty()) {
            text.append("</").append(open.back()).append(">\n");
            open.pop_back();
        } else if (first >= 0x70) {
            text += "17 $A 1e-3\n";
        } else {
            open.push_back(Choose(elements, first));
            text.append("<").append(open.back()).append(Choose(attributes, second)).append(">\n");
        }
    }
    for (; !open.empty(); open.pop_back())
        text.append("</").append(open.back()).append(">\n");
    return text + "</keywords>\n";
}

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

/// The number of stops of a walk, or so many that they tell nothing more.
template <class Walk, class Node>
std::size_t CountStops(const Node& root)
{
    std::size_t count = 0;
    for (Walk at(root); at != Walk::End() && count < 1'000; ++at)
        ++count;
    return count;
}

/// Data are made as their metadata say, and a clone is the same.
void MakeData(const Keywords::IKeywordSyntax& syntax)
{
    try {
        const auto data = Keywords::KeywordDataFactory::Instance().Construct(syntax);
        if (!data)
            return;
        const auto copy = data->CloneSafely();
        Require(Keywords::KeywordDataEqual(*data, *copy));
        CountStops<Keywords::ConstMetaDataIterator>(*data->GetMD());
        Require(
            CountStops<Keywords::ConstDataIterator>(*data) == CountStops<Keywords::ConstDataIterator>(*copy));
    } catch (const Service::Exception&) {
        // what can't have data, or be walked
    }
}

/// As `quor lint` does.
void LintText(const std::string& text)
{
    try {
        std::vector<Lint::Document> documents;
        documents.push_back(Lint::Document::ReadText(text, "fuzz"));
        const Lint::LintReport report = Lint::LintDocuments(documents, 100);
        Require(report.findings.GetKept().size() <= 100);
        for (const Decks::Finding& finding : report.findings.GetKept())
            Require(finding.location.line > 0 && !finding.message.empty());
    } catch (const Lint::DocumentError&) {
        // an encoding that can't be rewritten
    }
}

void LookUpAll(Keywords::KeywordSyntaxTable& table)
{
    Keywords::KeywordSyntaxEnumerator keywords = table.KeywordsEnumerator();
    while (keywords.NextWithHidden()) {
        const auto& [name, syntax] = *keywords.Current();
        bool found = name->find('*') != std::string::npos; // one wildcard may be before another
        for (const Keywords::IKeywordSyntax* candidate : table.LookupAll(*name))
            found = found || candidate == syntax;
        Require(found);
        Require(syntax->GetValidSections().empty() == syntax->GetValidSimulators(*name).empty()
            || !syntax->GetAliases().empty());
        syntax->GetDocumentationName();
        MakeData(*syntax);
    }
}

/// A regular file that is not on disk.
int MemoryFile()
{
    static const int file = ::memfd_create("document", 0);
    return file;
}

void Load(std::string_view text)
{
    Require(::ftruncate(MemoryFile(), 0) == 0);
    Require(::pwrite(MemoryFile(), text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
    try {
        LookUpAll(Keywords::KeywordSyntaxTable::Instance());
    } catch (const Service::Exception&) {
        // a keyword whose reader found something wrong
    }
    Keywords::KeywordSyntaxTable::Instance(true, false);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    Service::Log::SetHandler([](const char*, Service::MessageSeverity) {});
    const std::string path = "/proc/self/fd/" + std::to_string(MemoryFile());
    ::setenv("QUOR_KEYWORD_SYNTAX_FILE", path.c_str(), 1);
    ::unsetenv("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const bool composes = !bytes.empty() && bytes.front() == 0;
    const std::string text = composes ? Compose(bytes.substr(1)) : std::string(bytes);
    LintText(text);
    Service::XML::XMLDocument document;
    if (document.readMemory(text.data(), text.size(), "fuzz"))
        Load(text);
    else
        Require(!composes || text.size() > 5'000); // a composed one is refused for its depth alone
    return 0;
}
