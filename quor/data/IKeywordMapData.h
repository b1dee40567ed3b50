#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordAssignmentMD;

/// Integers by name: a pair for each assignment that the metadata name, and after them one for each further
/// name that was set and that a wildcard accepts. Keys are taken without regard to case and to blanks around
/// them. Positions are not checked.
class VELD_QUOR_EXPORT IKeywordMapData : public IKeywordData {
public:
    ~IKeywordMapData() override;

    /// Number of pairs, with a value or without.
    virtual int GetSize() const = 0;
    /// False, and no value, if no pair has the key.
    virtual bool GetValue(const std::string& key, Service::Optional<int>& value) const = 0;
    /// Without a value: not given.
    virtual Service::Optional<int> GetValue(int i) const = 0;
    /// Adds a pair if only a wildcard accepts the key; false if none does.
    virtual bool SetValue(const std::string& key, int value) = 0;
    /// Of the pair at that position.
    virtual void SetValue(int i, int value) = 0;
    /// Takes the value away; never adds or removes a pair. False if no pair has the key.
    virtual bool SetValueToDefault(const std::string& key) = 0;
    /// Of the pair at that position.
    virtual void SetValueToDefault(int i) = 0;
    /// Lives as long as this object, or, for a pair that the metadata name, as long as the table.
    virtual const IKeywordAssignmentMD* GetItemMD(int i) const = 0;

protected:
    /// For derived classes alone.
    IKeywordMapData();
    IKeywordMapData(const IKeywordMapData&);
    IKeywordMapData& operator=(const IKeywordMapData&);
};

} // namespace Veld::Quor::Core::Keywords
