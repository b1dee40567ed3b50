#pragma once

/// Marks what a host may link against. Everything else in the shared libraries is hidden.
#define VELD_QUOR_EXPORT __attribute__((visibility("default")))
