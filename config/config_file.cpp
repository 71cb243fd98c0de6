// The timer that keeps the settings file current.
#include "config/config_file.h"

#include "workstation/workstation.h"

namespace config {

// Every minute, whatever else is going on: a crash costs at most a minute
// of settings.
void tmr_save_ini_Timer(Workstation& ws) {
    WriteConfigFile(ws);
}

} // namespace config
