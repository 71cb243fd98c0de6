#pragma once
// The settings file OM_10_config.txt beside the program, and the small file
// helpers that go with it.

#include "config/setup_handlers.h"

#include <QByteArray>
#include <QString>

class Workstation;

namespace config {

// The file's name in the program folder.
inline constexpr const char* kConfigFileName = "OM_10_config.txt";

// Reads the file into the controls and the kept settings. A missing file
// leaves every default; a bad value reads as 0. Never fails.
void ReadConfigFile(Workstation& ws);
// The same from text already in hand (what the reader does with the file).
void ReadConfigText(Workstation& ws, const QByteArray& contents);

// Rewrites the whole file from the controls and the kept settings. A write
// that fails leaves the old file as it was.
void WriteConfigFile(Workstation& ws);
// The text the writer puts in the file, lines ending in CR LF.
QByteArray ConfigText(Workstation& ws);

// Writes the file every minute.
void tmr_save_ini_Timer(Workstation& ws);

} // namespace config
