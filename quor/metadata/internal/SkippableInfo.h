#pragma once

#include "quor/metadata/ISkippableInfo.h"

#include <vector>

namespace Veld::Quor::Core::Keywords {

class SkippableInfo final : public ISkippableInfo {
public:
    ~SkippableInfo() override;

    bool IsSkippableOnRead(unsigned int index) const override { return IsSet(onRead_, index); }
    bool IsSkippableOnWrite(unsigned int index) const override { return IsSet(onWrite_, index); }

    void SetSkippable(unsigned int index, bool onRead, bool onWrite);

private:
    using Flags = std::vector<bool>; // up to the last marked item; the rest is false

    static bool IsSet(const Flags& flags, unsigned int index) { return index < flags.size() && flags[index]; }
    static void Set(Flags& flags, unsigned int index, bool value);

    Flags onRead_;
    Flags onWrite_;
};

} // namespace Veld::Quor::Core::Keywords
