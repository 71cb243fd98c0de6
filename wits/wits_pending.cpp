// The local WITS link before it is built: no rate from the stream yet, and
// nothing goes out to the EDR.
#include "wits/wits_link.h"

namespace wits {

double WitsMinFt(Workstation&) {
    return 0;
}
double WitsFtHr(Workstation&) {
    return 0;
}
void Send_Serial_WITS(Workstation&) {}

} // namespace wits
