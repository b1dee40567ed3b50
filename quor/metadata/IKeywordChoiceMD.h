#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/ChoiceMatch.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <string>
#include <string_view>

namespace Veld::Quor::Core::Keywords {

class IUnsupportedByMD;
class IValidityMD;

/// One of a fixed list of words. A value is the index of the word. Indices are not checked: 0 to
/// `NumChoices()` - 1.
class VELD_QUOR_EXPORT IKeywordChoiceMD : public IKeywordItemMD {
public:
    ~IKeywordChoiceMD() override;

    /// How many words there are, those that some simulators do not know included.
    virtual int NumChoices() const = 0;
    /// The word, in upper case if it came from a document.
    virtual const std::string& GetChoice(int index) const = 0;
    /// Where the word is valid; everywhere unless the document says otherwise.
    virtual const IValidityMD& GetValidity(int index) const = 0;
    /// Who accepts the word without effect; nobody unless the document says otherwise.
    virtual const IUnsupportedByMD& GetUnsupportedBy(int index) const = 0;

    /// The choice that a user's text means, or -1: its own word, an alias, an abbreviation of either, or, if
    /// `Service::UseLaxMatch()`, the word that it agrees with furthest. Case does not matter. A match that
    /// `needsWarning` is logged through `Service::MessageCapper`.
    virtual int GetIndex(const std::string& text) const = 0;
    /// The same; on -1 `message` says what is allowed, unless the text is blank; else it is left alone.
    virtual int GetIndex(const std::string& text, std::string& message) const = 0;

    /// For exactly `simulator`: an index, or -1 for a default that names no choice; without a value if it is
    /// calculated or absent. `IsDefaultSpecified` says which.
    virtual Service::Optional<int> GetDefault(SimulatorType::Enum simulator) const = 0;

    /// The same match as `GetIndex` as a value: what was matched and how. Safe from any thread; the classes
    /// of this library log nothing.
    ///
    /// It is the last operation, so that the others keep their positions for hosts that are already compiled,
    /// and it is not pure, so that classes of a host that derive from this one still compile. For those it
    /// asks their `GetIndex`, which may log; `kind` is then `None`, `Word` or `Abbreviation`.
    virtual ChoiceMatch Match(std::string_view text) const;
};

} // namespace Veld::Quor::Core::Keywords
