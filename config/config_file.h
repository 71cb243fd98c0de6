#pragma once
// The settings file OM_10_config.txt beside the program.

class Workstation;

namespace config {

void ReadConfigFile(Workstation& ws);
void WriteConfigFile(Workstation& ws);
// The change handler of txt_gas_units, run once at the end of start-up.
void txt_gas_units_Change(Workstation& ws);

} // namespace config
