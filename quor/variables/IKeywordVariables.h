#pragma once

#include "quor/foundation/Export.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordData;
class VariablesString;

/// The variables attached to one node of data. Its class is the one of the three below that fits the node.
/// All of these are the caller's to implement.
class VELD_QUOR_EXPORT IKeywordDataVariables {
public:
    virtual ~IKeywordDataVariables();
};

class VELD_QUOR_EXPORT IKeywordListDataVariables : public IKeywordDataVariables {
public:
    ~IKeywordListDataVariables() override;
    /// The elements that hold variables.
    virtual const std::vector<int>& GetIndices() const = 0;
    virtual const VariablesString& GetVariablesString(int index) const = 0;
};

class VELD_QUOR_EXPORT IKeywordRecordDataVariables : public IKeywordDataVariables {
public:
    ~IKeywordRecordDataVariables() override;
    /// The items that hold variables, zero-based.
    virtual const std::vector<int>& GetIndices() const = 0;
    virtual const VariablesString& GetVariablesString(int index) const = 0;
};

class VELD_QUOR_EXPORT IKeywordMapDataVariables : public IKeywordDataVariables {
public:
    ~IKeywordMapDataVariables() override;
    /// The keys whose values hold variables, spelled as in the metadata.
    virtual const std::vector<std::string>& GetKeys() const = 0;
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
    virtual void Process(const IKeywordData& data, const IKeywordDataVariables& variables) = 0;
};

} // namespace Veld::Quor::Core::Keywords
