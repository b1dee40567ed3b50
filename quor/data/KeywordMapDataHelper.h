#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordAssignmentMD;
class IKeywordMapMD;

/// Values by key in a vector of pairs of an assignment and its value. Keys are taken without regard to case
/// and to blanks around them, and matched against the keys of the assignments, which must be in upper case.
/// For a host's own class of a map.
class VELD_QUOR_EXPORT KeywordMapDataHelper {
public:
    /// An assignment of a map's metadata, or one that the pair owns together with its copies.
    class VELD_QUOR_EXPORT AssignmentValueMDPair {
    public:
        /// Of the table, which must outlive the pair and its copies; not null.
        AssignmentValueMDPair(const IKeywordAssignmentMD* md, const Service::Optional<int>& value);
        /// Owns `md`, together with its copies; not null.
        AssignmentValueMDPair(std::unique_ptr<IKeywordAssignmentMD> md, const Service::Optional<int>& value);
        AssignmentValueMDPair(const AssignmentValueMDPair&);
        AssignmentValueMDPair(AssignmentValueMDPair&&) noexcept;
        AssignmentValueMDPair& operator=(const AssignmentValueMDPair&);
        AssignmentValueMDPair& operator=(AssignmentValueMDPair&&) noexcept;
        ~AssignmentValueMDPair();

        /// Lasts at least as long as the pair or one of its copies.
        const IKeywordAssignmentMD* GetMD() const { return md_ ? md_ : ownedMD_.get(); }
        /// Without a value: not given.
        /// @{
        const Service::Optional<int>& GetValue() const { return value_; }
        Service::Optional<int>& GetValue() { return value_; }
        void SetValue(const Service::Optional<int>& value) { value_ = value; }
        /// @}

    private:
        Service::Optional<int> value_;
        const IKeywordAssignmentMD* md_; // the table's; null for a pair that owns its metadata
        std::shared_ptr<const IKeywordAssignmentMD> ownedMD_;
    };
    /// What a map consists of: the named assignments of the metadata first.
    using Pairs = std::vector<AssignmentValueMDPair>;

    /// The first pair with a key that matches, or -1.
    static int FindIndex(const Pairs& pairs, const std::string& key);
    /// False, and no value, if no pair has the key.
    static bool GetValue(const Pairs& pairs, const std::string& key, Service::Optional<int>& value);
    /// Sets the value of the pair that has the key. If none has, and `md` is not null, adds a pair for each
    /// wildcard of `md` that accepts it. False if nothing was set. What throws leaves `pairs` as they were.
    /// @{
    static bool SetValue(
        Pairs& pairs, const std::string& key, const Service::Optional<int>& value, const IKeywordMapMD* md);
    static bool SetValue(Pairs& pairs, const std::string& key, int value, const IKeywordMapMD* md);
    /// @}
    /// Takes the value away; never adds or removes a pair. False if no pair has the key.
    static bool SetValueToDefault(Pairs& pairs, const std::string& key);
    /// Never a value: the defaults are in the metadata.
    static Service::Optional<int> GetDefaultValue(const Pairs& pairs, const std::string& key);
    /// Whether the two are equal, or `pattern` ends in `*` and `key` starts with what precedes it.
    static bool MatchKeys(const std::string& pattern, const std::string& key);

private:
    static int FindMatch(const std::vector<std::string>& keys, const std::string& key);
};

} // namespace Veld::Quor::Core::Keywords
