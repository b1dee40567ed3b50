#include "quor/metadata/internal/SkippableInfo.h"

namespace Veld::Quor::Core::Keywords {

SkippableInfo::~SkippableInfo() = default;

void SkippableInfo::SetSkippable(unsigned int index, bool onRead, bool onWrite)
{
    Set(onRead_, index, onRead);
    Set(onWrite_, index, onWrite);
}

void SkippableInfo::Set(Flags& flags, unsigned int index, bool value)
{
    if (index >= flags.size())
        flags.resize(index + 1);
    flags[index] = value;
}

} // namespace Veld::Quor::Core::Keywords
