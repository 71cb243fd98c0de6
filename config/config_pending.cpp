// The settings file before it is read: the start-up keeps its defaults.
#include "config/config_file.h"

namespace config {

void ReadConfigFile(Workstation&) {}
void WriteConfigFile(Workstation&) {}
void txt_gas_units_Change(Workstation&) {}

} // namespace config
