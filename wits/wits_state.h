#pragma once
// What the WITS gateway keeps for the run.

#include <QString>
#include <array>
#include <cstdint>

namespace wits {

struct WitsState {
    // Item names read from WITSconfig_V10.txt, indices 0 to 250.
    std::array<int16_t, 251> WITS_item_codes{};
    std::array<QString, 251> WITS_item_names{};
    int itemCount = 0;
};

} // namespace wits
