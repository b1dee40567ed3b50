#pragma once

#include "quor/foundation/internal/DocumentTree.h"

#include <optional>

namespace Veld::Quor::Core::Keywords {

/// Delivers the main syntax document: from the file that `QUOR_KEYWORD_SYNTAX_FILE` names, else the built-in
/// one. The tree lives as long as the loader. Failures are printed on standard output and thrown as
/// `KeywordException`; there is no fall-back from a file to the built-in document.
class SyntaxLoader {
public:
    /// Loads at the first call; later ones return the same tree.
    const Service::XML::Internal::DocumentTree& GetTree();

private:
    void LoadFromCompressedData();
    void LoadFromXMLFile(const char* path);

    std::optional<Service::XML::Internal::DocumentTree> tree_;
};

} // namespace Veld::Quor::Core::Keywords
