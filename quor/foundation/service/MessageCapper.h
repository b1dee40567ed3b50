#pragma once

#include "quor/foundation/Export.h"

#include <memory>
#include <string>

namespace Veld::Quor::Core::Service {

/// Logs warnings, and lets no more than a limited number of like ones through. Two messages are alike when
/// they differ in digits at most. Safe from any thread.
class VELD_QUOR_EXPORT MessageCapper {
public:
    /// How many like messages pass until `SetLimit` says otherwise.
    static constexpr int DefaultLimit = 10;

    /// The process-wide capper; never null, never freed.
    static MessageCapper* instance();

    /// Logs through `Log` at `Warning`, unless the limit of messages like this one is reached.
    void logW(const std::string& message);

    /// How many like messages pass from now on, those already logged included; below zero: all.
    void SetLimit(int likeMessages);

    /// Forgets which messages were logged. The limit stays.
    void Reset();

private:
    MessageCapper();
    ~MessageCapper();

    struct State;
    std::unique_ptr<State> state_;
};

} // namespace Veld::Quor::Core::Service
