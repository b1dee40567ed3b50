#include "quor/syntax/IKeywordSyntax.h"

namespace Veld::Quor::Core::Keywords {

IKeywordSyntax::~IKeywordSyntax() = default;

} // namespace Veld::Quor::Core::Keywords
