#pragma once

#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/TreeForward.h"

namespace Veld::Quor::Core::Keywords {

/// Reads the termination attribute of a record, list or map into `termination`, which stays if there is none;
/// returns whether there was. `reader` is at the start of the failure's text: "KeywordListMDImpl::ReadXML".
bool ReadTermination(const Service::XML::Internal::TreeElement& element, const char* reader,
    IKeywordDataMD::TerminationType::Enum& termination);

/// Throws `reader`, what is wrong and the tag of the child that a container doesn't know.
[[noreturn]] void FailUnhandled(const char* readerAndFault, const Service::XML::Internal::TreeElement& child);

} // namespace Veld::Quor::Core::Keywords
