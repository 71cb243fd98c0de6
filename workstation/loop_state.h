#pragma once
// What the main loop itself keeps: the wait in progress, the start-up
// guard and the flash of the off bottom button.

#include <cstdint>

namespace station {

struct LoopState {
    int32_t Gdelay_ticks = 0;
    bool Gstarting_up = true;
    bool Gflash_state = false;
};

} // namespace station
