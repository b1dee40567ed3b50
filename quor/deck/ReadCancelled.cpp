#include "quor/deck/ReadCancelled.h"

namespace Veld::Quor::Core::Decks {

ReadCancelled::ReadCancelled()
    : std::runtime_error("the read of the deck was cancelled")
{
}

ReadCancelled::~ReadCancelled() = default;

} // namespace Veld::Quor::Core::Decks
