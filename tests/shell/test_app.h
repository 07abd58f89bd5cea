// Helpers for the desktop tests.
#pragma once

namespace tarvelo {

// Handles everything pending: events, deferred calls, windows to be destroyed.
void Settle();

}  // namespace tarvelo
