#pragma once
// What the main loop itself keeps: the wait in progress, the start-up
// guard and the flash of the off bottom button.

#include <cstdint>

namespace station {

struct LoopState {
    int32_t Gdelay_ticks = 0;
    bool Gstarting_up = true;
    bool Gflash_state = false;
    // Times the event loop was let run while a connection held a write
    // lock: always 0 unless a job breaks the rule that it commits before it
    // yields (the live writer would then wait on it in vain).
    int32_t yieldsHoldingWriteLock = 0;
};

} // namespace station
