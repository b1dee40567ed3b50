#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordSyntax;

/// Look-up of keywords by name. Names are compared exactly. Results are null or empty for a name that is not
/// known, and live as long as the table.
class VELD_QUOR_EXPORT IKeywordSyntaxTable {
public:
    /// The first syntax under `name`, wildcards included, that is valid in `section` for some simulator. With
    /// `acceptSingle`, a syntax that is the only one under its name is the answer in every section.
    virtual const IKeywordSyntax* Lookup(
        const std::string& name, SectionType::Enum section, bool acceptSingle) const = 0;
    /// Of several syntaxes the first that is not valid in SUMMARY, and if all are, the first.
    virtual const IKeywordSyntax* Lookup(const std::string& name, bool wildcards) const = 0;
    /// All, wildcards included: those of trusted documents first, then in the order of the documents.
    virtual std::vector<const IKeywordSyntax*> LookupAll(const std::string& name) = 0;

    virtual ~IKeywordSyntaxTable();
};

} // namespace Veld::Quor::Core::Keywords
