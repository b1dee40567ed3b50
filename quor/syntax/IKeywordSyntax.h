#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/syntax/KeywordDeckRole.h"

#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class ICellPropertyInfo;
class IKeywordDataMD;
class ISummaryMnemonicInfo;

/// The definition of one deck keyword. Belongs to the table that it was looked up in, and is valid as long;
/// so is all that is reached through it. Read-only once the table is loaded, and safe from several threads.
///
/// The operations that take `alias` answer for the spelling under which the keyword was found: the keyword's
/// own name, or one of its aliases, which may be hidden and may have its own validity. For any other
/// text they answer for the keyword. Those without `alias` answer for the keyword's own name.
class VELD_QUOR_EXPORT IKeywordSyntax {
public:
    /// As in the document; a trailing `*` makes the keyword a wildcard.
    virtual const std::string& GetName() const = 0;
    /// In the order of the document; empty if there are none.
    virtual const std::vector<std::string>& GetAliases() const = 0;
    /// Whether the keyword belongs to no simulator in particular.
    virtual bool IsGeneric() const = 0;
    /// Whether the name is not to be offered to users. An alias of a hidden keyword is visible unless it is
    /// itself marked. Any other text: not hidden, or, if the keyword has no aliases, as the keyword.
    /// @{
    virtual bool IsHidden(const std::string& alias) const = 0;
    virtual bool IsHidden() const = 0;
    /// @}
    /// Whether the name ends in `*`, and so stands for all names with that start.
    virtual bool IsWildcard() const = 0;
    /// For people; empty if the document has none.
    virtual std::string GetDescription() const = 0;
    /// The name under which the keyword is documented: the one in the document, or "SUMMARY" for a
    /// keyword that is valid in that section alone, or its own.
    virtual std::string GetDocumentationName() const = 0;
    /// By the name alone, whatever the document says.
    virtual KeywordDeckRole::Enum GetDeckRole() const = 0;

    /// Simulators, ascending, for which the keyword is valid in some section and mode.
    /// @{
    virtual std::vector<SimulatorType::Enum> GetValidSimulators(const std::string& alias) const = 0;
    virtual std::vector<SimulatorType::Enum> GetValidSimulators() const = 0;
    /// @}
    /// In some section and mode. Never `SimulatorType::Any`: not checked.
    /// @{
    virtual bool IsValidSimulator(SimulatorType::Enum simulator, const std::string& alias) const = 0;
    virtual bool IsValidSimulator(SimulatorType::Enum simulator) const = 0;
    /// @}
    /// In some mode of the simulator. `SimulatorType::Any` asks for some simulator; `SectionType::None` is
    /// never valid.
    /// @{
    virtual bool IsValid(
        SectionType::Enum section, SimulatorType::Enum simulator, const std::string& alias) const = 0;
    virtual bool IsValid(SectionType::Enum section, SimulatorType::Enum simulator) const = 0;
    /// @}
    /// Sections, ascending, in which the keyword is valid for some simulator and mode.
    virtual std::vector<SectionType::Enum> GetValidSections() const = 0;
    /// `SectionType::None` if the keyword is valid nowhere.
    virtual SectionType::Enum GetFirstValidSection() const = 0;

    /// Whether the document says that the keyword opens a scope.
    virtual bool HasScope() const = 0;
    /// The keywords that end the scope which this one opens, as far as the table has them; empty if it opens
    /// none.
    virtual const std::vector<const IKeywordSyntax*>& GetScopeKeywords() const = 0;
    /// The keyword that ends the scope explicitly; null if there is none. Only if `HasScope()`.
    virtual const IKeywordSyntax* GetScopeSyntax() const = 0;
    /// Null for a keyword that is no summary vector.
    virtual const ISummaryMnemonicInfo* GetSummaryMnemonicInfo() const = 0;
    /// Null for a keyword without a value for each cell.
    virtual const ICellPropertyInfo* GetCellPropertyInfo() const = 0;
    /// Root of the metadata tree; null for a keyword that carries nothing.
    virtual const IKeywordDataMD* GetDataMD() const = 0;
    /// Whether some item is marked as an identifier, at any depth: `GetIdentifierCount()` is not 0.
    virtual bool HasIdentifiers() const = 0;
    /// How many items are marked as identifiers, at any depth; those that are containers count too.
    virtual int GetIdentifierCount() const = 0;

    /// Whether the document names keywords that must come before this one.
    virtual bool HasPrecedents() const = 0;
    /// The names of all keywords that must come before this one, those that they themselves ask for included.
    /// Worked out for the section of the first call, and kept: later calls answer the same for any section.
    virtual const std::set<std::string>& GetPrecedents(SectionType::Enum section) const = 0;

    virtual ~IKeywordSyntax();
};

} // namespace Veld::Quor::Core::Keywords
