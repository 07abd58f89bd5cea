// For the desktop's tests.
#pragma once

namespace tarvelo {

// Handles everything that waits: events, deferred calls, windows to be destroyed.
void Settle();

}  // namespace tarvelo
