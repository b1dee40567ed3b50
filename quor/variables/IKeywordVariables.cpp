#include "quor/variables/IKeywordVariables.h"

namespace Veld::Quor::Core::Keywords {

IKeywordDataVariables::~IKeywordDataVariables() = default;
IKeywordListDataVariables::~IKeywordListDataVariables() = default;
IKeywordRecordDataVariables::~IKeywordRecordDataVariables() = default;
IKeywordMapDataVariables::~IKeywordMapDataVariables() = default;
IKeywordVariables::~IKeywordVariables() = default;
IVariableProcessor::~IVariableProcessor() = default;

} // namespace Veld::Quor::Core::Keywords
