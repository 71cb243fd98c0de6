#pragma once
// The operator's console to the instrument on the setup panel: value boxes
// with their send buttons, the free command, the read back of all values,
// and the login that opens two-way communication.

#include <QString>

class Workstation;

namespace acq {

void cmd_KW_command_Click(Workstation& ws, int index);

// The command text a row sends (without its CR), after the row's limit has
// been applied to its box. Empty for the read back row.
QString CommandOfRow(Workstation& ws, int index);
// What the read back row asks, in order.
const QStringList& ReadBackCommands();

// The login message for a name and password: "[PGP KEY ", 255 elements of
// three digits, "]", CR LF. Fills Gkey_block on the way.
QString KeyMessage(Workstation& ws, const QString& name, const QString& password);
void send_key(Workstation& ws);
void cmd_send_key_Click(Workstation& ws);
// Enter in the password box sends the key, as the button does.
void txt_pwe_KeyPress(Workstation& ws, int keyAscii);
void cmd_secure_Click(Workstation& ws);
// Keeps the two-way session open.
void tmr_stay_logged_in_Timer(Workstation& ws);

} // namespace acq
