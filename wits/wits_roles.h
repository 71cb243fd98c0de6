#pragma once
// Where each WITS item lands in Gwits_values: the one role table of both WITS
// paths (the "^" block relayed by the instrument and the local serial link).

#include <array>
#include <vector>

class Workstation;

namespace wits {

struct WitsRole {
    int slot;
    std::array<int, 3> codes; // 0 ends a shorter list
    bool wholePart;           // pump rates and the like keep only the whole part
};
const std::vector<WitsRole>& WitsRoleTable();

// The four custom channels fill slots 22 to 25.
constexpr int kFirstCustomSlot = 22;

// Stores one item by the role table, then by the four custom codes typed on
// the setup panel (an item may fill both). A custom value holds its slot for
// 300 seconds.
void StoreWitsItem(Workstation& ws, int code, double value);

} // namespace wits
