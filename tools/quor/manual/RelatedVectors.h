#pragma once

#include "tools/quor/manual/Catalog.h"

#include <vector>

namespace Veld::Quor::Tools {

/// Finds the output vectors that report what the items of a keyword say.
class RelatedVectors {
public:
    explicit RelatedVectors(const Catalog& catalog);

    /// Of the entities whose names the keyword defines or refers to, those whose description has all words of
    /// the description of an item with a measurement.
    std::vector<const Entry*> Find(const Entry& entry) const;

private:
    struct Vector {
        const Entry* entry;
        std::set<std::string> words; // of its description
        std::set<std::string> kinds; // of the names that it refers to
    };
    std::vector<Vector> vectors_;
};

} // namespace Veld::Quor::Tools
