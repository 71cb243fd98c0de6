#pragma once
// The automatic run of the file products.

class Workstation;

namespace products {

void tmr_autogen_Timer(Workstation& ws);

} // namespace products
