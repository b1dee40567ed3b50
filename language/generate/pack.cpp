// Puts the files of a syntax document together and packs them into a C++ source.
//
//   pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml... [--vectors TABLE.txt...] [--arrays TABLE.txt...]
//       [--units UNITS.txt MEASUREMENTS.txt] [--text] [--tree] [--subjects OUTPUT.txt]
//
// An XML file has pieces, or a part of the document. The packed document, which OUTPUT.xml holds as it is,
// has the root elements of the parts, in the order given, under one root, and the output vectors after them;
// short forms are replaced. With the tables of units each quantity must have one. A mistake ends the build
// with file, line and column. With --text VARIABLE is the document's text, with --tree VARIABLETree is the
// document as the loader wants it.
// With --subjects the keywords of each file that says in a comment what it has: a line with its name, the
// comment and the keywords, separated by tabs. language/README.md describes all this.

#include "language/generate/ArrayTable.h"
#include "language/generate/Expansion.h"
#include "language/generate/Files.h"
#include "language/generate/PackedSource.h"
#include "language/generate/Quantities.h"
#include "language/generate/VectorDocument.h"
#include "quor/foundation/internal/PackedTree.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <xercesc/dom/DOMDocument.hpp>

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

struct Inputs {
    std::vector<std::string> documents;
    std::vector<std::string> vectors;
    std::vector<std::string> arrays;
    std::vector<std::string> units; ///< none, or the table of units and that of measurements
    std::vector<std::string> subjects; ///< none, or the file to write
    bool hasText = false;
    bool hasTree = false;
};

Inputs InputsOf(const std::vector<std::string>& arguments)
{
    Inputs inputs;
    std::vector<std::string>* to = &inputs.documents;
    for (const std::string& argument : arguments) {
        if (argument == "--vectors")
            to = &inputs.vectors;
        else if (argument == "--arrays")
            to = &inputs.arrays;
        else if (argument == "--units")
            to = &inputs.units;
        else if (argument == "--subjects")
            to = &inputs.subjects;
        else if (argument == "--text")
            inputs.hasText = true;
        else if (argument == "--tree")
            inputs.hasTree = true;
        else
            to->push_back(argument);
    }
    return inputs;
}

void CheckUnits(const std::vector<Document>& parts, const Measurements& measurements)
{
    for (const Document& part : parts)
        CheckQuantities(part.root, measurements);
}

/// The words of the comment before the root, with one blank between them.
std::string CommentOf(const Document& part)
{
    std::istringstream words(part.prolog);
    std::string text;
    for (std::string word; words >> word;) {
        if (word != "<!--" && word != "-->")
            text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

/// Its keywords with what the file says that they have in common; empty for a file that doesn't say it.
std::string SubjectLine(const std::string& path, const Document& part)
{
    const std::string comment = CommentOf(part);
    std::string names;
    for (const Element& keyword : part.root.children) {
        if (const std::string* const name = keyword.Find("name"))
            names += (names.empty() ? "" : " ") + *name;
    }
    const std::string stem = std::filesystem::path(path).stem().string();
    return comment.empty() || names.empty() ? "" : stem + '\t' + comment + '\t' + names + '\n';
}

std::string PutTogether(const Inputs& inputs)
{
    Pieces pieces;
    std::vector<Document> parts;
    std::vector<std::string> paths; // of the parts that are files
    for (const std::string& path : inputs.documents) {
        Document read = ReadDocument(path);
        if (read.root.tag == "pieces") {
            pieces.Add(read.root);
        } else {
            parts.push_back(std::move(read));
            paths.push_back(path);
        }
    }
    for (const std::string& path : inputs.arrays)
        pieces.Add(ReadArrayTable(path));
    if (!inputs.vectors.empty())
        parts.push_back(VectorDocument(ReadVectorTables(inputs.vectors)));
    std::string document = std::string(xmlDeclaration) + "\n<keywords>";
    for (Document& part : parts) {
        pieces.Expand(part.root);
        document += part.prolog + Layout(part.root);
    }
    pieces.CheckAllUsed();
    if (!inputs.subjects.empty()) {
        std::string subjects;
        for (std::size_t i = 0; i < paths.size(); ++i)
            subjects += SubjectLine(paths[i], parts[i]);
        WriteText(inputs.subjects.front(), subjects);
    }
    if (!inputs.units.empty())
        CheckUnits(parts, ReadMeasurements(inputs.units.front(), inputs.units.back()));
    return document + "</keywords>\n";
}

/// The tree of the document, each text once.
std::string TreeBytes(const std::string& document)
{
    using namespace Veld::Quor::Core::Service::XML;
    XMLDocument read;
    if (!read.readMemory(document.data(), document.size(), "the document put together"))
        throw std::runtime_error("the document put together is not well-formed");
    Internal::DocumentTree tree = Internal::TreeOf(*read.GetDocument()->getDocumentElement());
    std::vector<Internal::DocumentTree::Node> nodes(tree.nodes.begin(), tree.nodes.end());
    std::vector<Internal::DocumentTree::Attribute> attributes(tree.attributes.begin(), tree.attributes.end());
    std::string texts;
    std::unordered_map<std::string, std::uint32_t> known;
    const auto place = [&](std::uint32_t& begin, std::uint32_t size) {
        const auto [at, isNew] =
            known.emplace(tree.texts.substr(begin, size), static_cast<std::uint32_t>(texts.size()));
        if (isNew)
            texts += at->first;
        begin = at->second;
    };
    for (auto& node : nodes)
        place(node.text, node.textSize);
    for (auto& attribute : attributes)
        place(attribute.value, attribute.size);
    tree.nodes = nodes;
    tree.attributes = attributes;
    tree.texts = texts;
    return BytesOf(tree);
}

void WriteVariable(const std::string& name, std::size_t size, std::ostream& source)
{
    source << "\nconst PackedDocument " << name << " = {" << name << "Bytes, " << size << "};\n\n";
}

std::string SourceOf(const std::string& variable, const std::string& document, const Inputs& inputs)
{
    std::ostringstream source;
    source << "#include \"quor/foundation/builtin/internal/PackedDocument.h\"\n\n"
           << "namespace Veld::Quor::Core::KeywordSyntax::Internal {\n\n";
    if (inputs.hasText) {
        const std::string packed = Compress(document);
        WriteBytes(variable + "Bytes", packed, source);
        WriteVariable(variable, packed.size(), source);
    }
    if (inputs.hasTree) {
        const std::string tree = TreeBytes(document);
        WriteLiteral(variable + "TreeBytes", tree, source);
        WriteVariable(variable + "Tree", tree.size(), source);
    }
    source << "} // namespace Veld::Quor::Core::KeywordSyntax::Internal\n";
    return source.str();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 5) {
        std::cerr << "usage: pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml... [--vectors TABLE.txt...] "
                     "[--arrays TABLE.txt...] [--units UNITS.txt MEASUREMENTS.txt] [--text] [--tree] "
                     "[--subjects OUTPUT.txt]\n";
        return 2;
    }
    const Inputs inputs = InputsOf({argv + 4, argv + argc});
    const std::string document = PutTogether(inputs);
    WriteText(argv[2], document);
    WriteText(argv[1], SourceOf(argv[3], document, inputs));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
