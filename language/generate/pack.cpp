// Puts the files of a syntax document together and packs them into a C++ source.
//
//   pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml... [--vectors TABLE.txt...] [--arrays TABLE.txt...]
//       [--units UNITS.txt MEASUREMENTS.txt] [--tree]
//
// An XML file has pieces, or a part of the document. The packed document, which OUTPUT.xml holds as it is,
// has the root elements of the parts, in the order given, under one root, and the output vectors after them;
// short forms are replaced. With the tables of units each quantity must have one. A mistake ends the build
// with file, line and column. With --tree there is also VARIABLETree, the document as the loader wants it.
// language/README.md describes all this.

#include "language/generate/ArrayTable.h"
#include "language/generate/Expansion.h"
#include "language/generate/Files.h"
#include "language/generate/Quantities.h"
#include "language/generate/VectorDocument.h"
#include "quor/foundation/internal/PackedTree.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <zstd.h>

#include <cstdint>
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

std::string PutTogether(const Inputs& inputs)
{
    Pieces pieces;
    std::vector<Document> parts;
    for (const std::string& path : inputs.documents) {
        Document read = ReadDocument(path);
        if (read.root.tag == "pieces")
            pieces.Add(read.root);
        else
            parts.push_back(std::move(read));
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
    if (!inputs.units.empty())
        CheckUnits(parts, ReadMeasurements(inputs.units.front(), inputs.units.back()));
    return document + "</keywords>\n";
}

std::string Compress(const std::string& text)
{
    std::string packed(ZSTD_compressBound(text.size()), '\0');
    const std::size_t size =
        ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), ZSTD_maxCLevel());
    if (ZSTD_isError(size))
        throw std::runtime_error(ZSTD_getErrorName(size));
    packed.resize(size);
    return packed;
}

/// The tree of the document, each text once.
std::string TreeBytes(const std::string& document)
{
    using namespace Veld::Quor::Core::Service::XML;
    XMLDocument read;
    if (!read.readMemory(document.data(), document.size(), "the document put together"))
        throw std::runtime_error("the document put together is not well-formed");
    Internal::DocumentTree tree = Internal::TreeOf(*read.GetDocument()->getDocumentElement());
    std::string texts;
    std::unordered_map<std::string, std::uint32_t> known;
    const auto place = [&](std::uint32_t& begin, std::uint32_t size) {
        const auto [at, isNew] =
            known.emplace(tree.texts.substr(begin, size), static_cast<std::uint32_t>(texts.size()));
        if (isNew)
            texts += at->first;
        begin = at->second;
    };
    for (auto& node : tree.nodes)
        place(node.text, node.textSize);
    for (auto& attribute : tree.attributes)
        place(attribute.value, attribute.size);
    tree.texts = std::move(texts);
    return BytesOf(tree);
}

void WriteVariable(const std::string& name, const std::string& packed, std::ostream& source)
{
    source << "static constexpr unsigned char " << name << "Bytes[] = {";
    for (std::size_t i = 0; i < packed.size(); ++i)
        source << (i % 32 == 0 ? "\n" : "") << int(static_cast<unsigned char>(packed[i])) << ',';
    source << "\n};\n\nconst PackedDocument " << name << " = {" << name << "Bytes, sizeof " << name
           << "Bytes};\n\n";
}

std::string SourceOf(const std::string& variable, const std::string& document, bool hasTree)
{
    std::ostringstream source;
    source << "#include \"quor/foundation/builtin/internal/PackedDocument.h\"\n\n"
           << "namespace Veld::Quor::Core::KeywordSyntax::Internal {\n\n";
    WriteVariable(variable, Compress(document), source);
    if (hasTree)
        WriteVariable(variable + "Tree", Compress(TreeBytes(document)), source);
    source << "} // namespace Veld::Quor::Core::KeywordSyntax::Internal\n";
    return source.str();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 5) {
        std::cerr << "usage: pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml... [--vectors TABLE.txt...] "
                     "[--arrays TABLE.txt...] [--units UNITS.txt MEASUREMENTS.txt] [--tree]\n";
        return 2;
    }
    const Inputs inputs = InputsOf({argv + 4, argv + argc});
    const std::string document = PutTogether(inputs);
    WriteText(argv[2], document);
    WriteText(argv[1], SourceOf(argv[3], document, inputs.hasTree));
    return 0;
} catch (const std::exception& error) {
    std::cerr << "error: " << error.what() << '\n';
    return 1;
}
