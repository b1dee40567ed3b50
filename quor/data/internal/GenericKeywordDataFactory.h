#pragma once

#include "quor/data/IKeywordData.h"

#include <memory>
#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordListMD;

/// Makes data of metadata: new, without values, and with nested records at once.
class GenericKeywordDataFactory {
public:
    /// Null if `md` is null, is no container, or is a list without an item. Throws `KeywordException` for
    /// metadata that can't have data.
    static std::unique_ptr<IKeywordData> Construct(const IKeywordDataMD* md, const IKeywordSyntax* syntax);
    static std::unique_ptr<IKeywordData> Construct(const IKeywordListMD* md, const IKeywordSyntax* syntax);

    /// `operation`, what is wrong and the class of `md`, quoted.
    [[noreturn]] static void FailUnhandled(const char* operation, const IKeywordDataMD& md);
};

} // namespace Veld::Quor::Core::Keywords
