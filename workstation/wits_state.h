#pragma once
// What the WITS gateway keeps for the run: the latest value of every WITS
// role, the health of the stream, the pump rate, and the item names.

#include <QString>
#include <array>
#include <cstdint>

namespace wits {

constexpr int kWitsSlots = 41;

struct WitsState {
    // Seconds of life left of the WITS stream: 60 on every good frame.
    int32_t Gwits_alive = 0;
    int32_t Gwits_custom_hold = 0;
    std::array<double, kWitsSlots> Gwits_values{};
    // Total strokes per minute, and the operator's pumps-on state that
    // counts only while WITS is down.
    double Gspm = 0;
    bool Gpumps_manual = false;

    // Item names read from WITSconfig_V10.txt, indices 0 to 250.
    std::array<int16_t, 251> WITS_item_codes{};
    std::array<QString, 251> WITS_item_names{};
    int itemCount = 0;
};

} // namespace wits
