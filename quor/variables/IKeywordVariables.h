#pragma once

#include "quor/foundation/Export.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordData;
class VariablesString;

/// The variables attached to one node of data. Its class is the one of the three below that fits the node.
/// All of these are the caller's to implement, and must live as long as the walk.
class VELD_QUOR_EXPORT IKeywordDataVariables {
public:
    virtual ~IKeywordDataVariables();
};

/// The variables of a list of values.
class VELD_QUOR_EXPORT IKeywordListDataVariables : public IKeywordDataVariables {
public:
    ~IKeywordListDataVariables() override;
    /// The elements that hold variables.
    virtual const std::vector<int>& GetIndices() const = 0;
    /// The text of one of these elements.
    virtual const VariablesString& GetVariablesString(int index) const = 0;
};

/// The variables of the scalar items of a record.
class VELD_QUOR_EXPORT IKeywordRecordDataVariables : public IKeywordDataVariables {
public:
    ~IKeywordRecordDataVariables() override;
    /// The items that hold variables, zero-based.
    virtual const std::vector<int>& GetIndices() const = 0;
    /// The text of one of these items.
    virtual const VariablesString& GetVariablesString(int index) const = 0;
};

/// The variables of a map.
class VELD_QUOR_EXPORT IKeywordMapDataVariables : public IKeywordDataVariables {
public:
    ~IKeywordMapDataVariables() override;
    /// The keys whose values hold variables, spelled as in the metadata.
    virtual const std::vector<std::string>& GetKeys() const = 0;
    /// The text of one of these keys.
    virtual const VariablesString& GetVariablesString(const std::string& key) const = 0;
};

/// Which nodes of data have variables.
class VELD_QUOR_EXPORT IKeywordVariables {
public:
    virtual ~IKeywordVariables();
    /// Those of exactly this node; null if it has none.
    virtual const IKeywordDataVariables* GetDataVariables(const IKeywordData& data) const = 0;
};

/// What is done with each node that has variables.
class VELD_QUOR_EXPORT IVariableProcessor {
public:
    virtual ~IVariableProcessor();
    /// Called once for each node that has variables. What it throws ends the walk and reaches its caller.
    virtual void Process(const IKeywordData& data, const IKeywordDataVariables& variables) = 0;
};

} // namespace Veld::Quor::Core::Keywords
