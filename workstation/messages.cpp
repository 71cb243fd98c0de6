#include "workstation/messages.h"

#include "platform/files.h"
#include "text/datetime.h"
#include "workstation/workstation.h"

namespace station {

namespace {

const QString kErrLog = QStringLiteral("ERR_LOG.TXT");
const QString kCommandLog = QStringLiteral("COMMAND_LOG.TXT");

// Bounds of the two scrolling boxes: cut rarely, not on every line.
constexpr int kTerminalHigh = 9500;
constexpr int kTerminalLow = 8500;
constexpr int kMessageHigh = 3000;
constexpr int kMessageLow = 2000;

// Keeps the last `low` characters once the text passed `high`.
void Bound(forms::Control& box, int high, int low) {
    if (box.text().size() > high) box.setText(box.text().right(low));
}

QString NowTime(Workstation& ws) {
    return text::ShortTime(ws.Now().time());
}
QString NowDate(Workstation& ws) {
    return text::ShortDate(ws.Now().date());
}

} // namespace

void disply_text(Workstation& ws, const QString& text) {
    auto& box = ws.more_data.text_window;
    box.setText(box.text() + text);
    Bound(box, kTerminalHigh, kTerminalLow);
}

void disply_text_alarms(Workstation& ws, const QString& text) {
    auto& box = ws.fm_Gas_Chart.txt_message;
    if (text.isEmpty()) {
        box.setText("");
    } else {
        // The log first: it stands whatever becomes of the box.
        platform::AppendLine(ws.programFile(kErrLog), "** " + ws.packet.UnitSerial + " - " +
                                                          NowTime(ws) + "  " + NowDate(ws) + "  " +
                                                          text);
        box.setText(box.text().isEmpty() ? text : box.text() + "\r\n" + text);
    }
    Bound(box, kMessageHigh, kMessageLow);
}

void write_function_log(Workstation& ws, const QString& text) {
    platform::AppendLine(ws.programFile(kCommandLog), ws.packet.UnitSerial + " " + NowTime(ws) +
                                                          "  " + NowDate(ws) + " *** " + text);
}

} // namespace station
