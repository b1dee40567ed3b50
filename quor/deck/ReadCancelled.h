#pragma once

#include "quor/foundation/Export.h"

#include <stdexcept>

namespace Veld::Quor::Core::Decks {

/// The host cancelled the read of a deck.
class VELD_QUOR_EXPORT ReadCancelled : public std::runtime_error {
public:
    ReadCancelled();
    ReadCancelled(const ReadCancelled&) = default;
    ReadCancelled& operator=(const ReadCancelled&) = default;
    ~ReadCancelled() override;
};

} // namespace Veld::Quor::Core::Decks
