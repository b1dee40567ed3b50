#pragma once

#include "quor/foundation/internal/DocumentTree.h"

#include <string>
#include <utility>

namespace Veld::Quor::Core::Keywords {

/// Delivers a syntax document: from a file, or the main one from the file that `QUOR_KEYWORD_SYNTAX_FILE`
/// names, else the built-in one. Failures are printed on standard output and thrown as `KeywordException`;
/// there is no fall-back from a file to the built-in document.
class SyntaxLoader {
public:
    /// `file`: empty for the main document.
    explicit SyntaxLoader(std::string file = {})
        : file_(std::move(file))
    {
    }

    Service::XML::Internal::DocumentTree Load();

private:
    Service::XML::Internal::DocumentTree LoadFromCompressedData();
    Service::XML::Internal::DocumentTree LoadFromXMLFile(const char* path);

    std::string file_;
};

} // namespace Veld::Quor::Core::Keywords
