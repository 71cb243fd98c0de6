#include "wits/wits_roles.h"

#include "text/numbers.h"
#include "workstation/workstation.h"

namespace wits {

const std::vector<WitsRole>& WitsRoleTable() {
    static const std::vector<WitsRole> table = {
        {0, {108, 408}, false},         // bit depth
        {1, {110, 410, 1108}, false},   // hole depth
        {2, {113}, false},              //
        {3, {114, 115}, false},         //
        {4, {116, 117}, false},         //
        {5, {120}, false},              //
        {6, {121, 414}, false},         //
        {7, {122}, false},              //
        {8, {123}, true},               // pump 1 strokes per minute
        {9, {124}, true},               // pump 2
        {10, {125}, true},              // pump 3
        {11, {137}, true},              //
        {12, {143}, false},             //
        {13, {144}, false},             //
        {14, {145}, false},             //
        {15, {713}, false},             // inclination
        {16, {715}, false},             // azimuth
        {17, {716, 6310, 6339}, false}, //
        {18, {717}, false},             //
        {19, {722, 6311, 6340}, false}, //
        {20, {821}, false},             // gamma, lagged
        {21, {823, 824}, false},        // gamma
        {26, {129}, false},             //
    };
    return table;
}

void StoreWitsItem(Workstation& ws, int code, double value) {
    auto& slots = ws.wits.Gwits_values;
    for (const WitsRole& role : WitsRoleTable()) {
        for (int c : role.codes) {
            if (c != 0 && c == code) slots[role.slot] = role.wholePart ? text::Fix(value) : value;
        }
    }
    const auto& custom = ws.fm_setup.txt_custom_wits_number;
    for (int i = 0; i < static_cast<int>(custom.size()); ++i) {
        if (text::Val(custom[i].text()) == code) {
            slots[kFirstCustomSlot + i] = value;
            ws.wits.Gwits_custom_hold = 300;
        }
    }
}

} // namespace wits
