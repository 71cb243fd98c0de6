#pragma once
// Where every part of the program reports: the message box of the main
// screen with the error log beside the program, the command log, and the
// raw terminal of the data viewer.

#include <QString>

class Workstation;

namespace station {

// Shows in txt_message and logs in ERR_LOG.TXT; an empty text clears the box.
void disply_text_alarms(Workstation& ws, const QString& text);
// Logs in COMMAND_LOG.TXT.
void write_function_log(Workstation& ws, const QString& text);
// Appends to the raw terminal of the data viewer.
void disply_text(Workstation& ws, const QString& text);

} // namespace station
