#include "acquisition/sync.h"

#include "db/job_error.h"
#include "platform/dialogs.h"
#include "products/omd.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QFile>

namespace acq {

namespace {

// Tenths of a second the instrument has to begin, and the silence after a
// chunk that ends the transfer.
constexpr int32_t kStartTicks = 100;
constexpr int32_t kSilenceTicks = 50;
// The count goes up by this much a chunk; more than kImportAbove is worth
// an import.
constexpr long kRecordsPerChunk = 25;
constexpr long kImportAbove = 100;

const char* const kTransferCaption = "Transfering data from Kettlewick";

void NotConnected(Workstation& ws) {
    station::disply_text_alarms(ws, "");
    station::disply_text_alarms(ws, "The Kettlewick is not connected to the computer");
    station::disply_text_alarms(ws, "through the serial port.");
    station::disply_text_alarms(ws, "Please check the serial port connection");
    station::disply_text_alarms(ws, "to the Kettlewick and try again.");
}

bool Confirmed(Workstation& ws) {
    const QString text =
        "Syncing with the Kettlewick may take a VERY long time\r\n"
        "While the data is being downloaded to the computer, the Kettlewick will\r\n"
        "not be able to generate or store data\r\n"
        "Do you with to proceed with the download from the Kettlewick?";
    return ws.dialogs().MsgBox(text, platform::Buttons::YesNo, "SYNC WITH KETTLEWICK DATA?",
                               platform::Icon::Question) == platform::Answer::Yes;
}

// Sets the transfer flags back whatever way the download ends: one left up
// would stop all parsing.
struct TransferFlags {
    Workstation& ws;
    ~TransferFlags() {
        ws.packet.Gtransfer_active = false;
        ws.packet.Gtransfer_hold = false;
    }
};

} // namespace

void Sync_with_Kettlewick(Workstation& ws) {
    if (ws.db.Gdb_busy) return;
    if (ws.fm_Gas_Chart.cmd_comm1.backColor() != forms::color::Green || !ws.MSComm1.PortOpen()) {
        NotConnected(ws);
        return;
    }
    if (!Confirmed(ws)) return;
    try {
        station::BusyFlag busy(ws.db.Gdb_busy);
        TransferFlags flags{ws};
        const QString tempName = ws.programFile("KW_TEMP.TXT");
        QFile::remove(tempName);
        QFile temp(tempName);
        if (!temp.open(QIODevice::WriteOnly))
            throw std::runtime_error(("Permission denied: " + tempName).toStdString());

        auto& help = ws.fm_help;
        help.form.setVisible(true);
        help.lbl_help.setCaption(QString(kTransferCaption) + "\r\nDon't Touch Any Buttons.");
        help.pgbar.setRange(0, 100);
        help.pgbar.setValue(1);
        station::help_msg(ws, "");
        station::help_msg(ws, kTransferCaption);
        station::DoEvents(ws);

        if (ws.MSComm1.PortOpen()) {
            ws.MSComm1.Output("\r");
            station::DelaySeconds(ws, 1);
            ws.MSComm1.Output("\r");
            station::DelaySeconds(ws, 1);
            ws.MSComm1.Output("TRANSFER KW_DATA.OMD\r");
        }

        auto& pk = ws.packet;
        pk.Gtransfer_active = true;
        pk.Gtransfer_buffer.clear();
        pk.Garrival_buffer.clear();
        ws.loop.Gdelay_ticks = kStartTicks;
        long count = 0;
        // tmrDataArrival fills the buffer and tmr_delay counts the ticks
        // while the loop runs here.
        while (ws.loop.Gdelay_ticks > 0 && !ws.closing) {
            station::WaitEvents(ws);
            if (pk.Gtransfer_buffer.isEmpty()) continue;
            pk.Gtransfer_hold = true;
            temp.write(pk.Gtransfer_buffer.toLatin1());
            pk.Gtransfer_buffer.clear();
            ws.loop.Gdelay_ticks = kSilenceTicks;
            pk.Gtransfer_hold = false;
            count += kRecordsPerChunk;
            help.lbl_help.setCaption(QString(kTransferCaption) + "\r\nDon't Touch Any Buttons.");
            station::help_msg(ws, QString::number(count) + " records transfered");
        }
        temp.close();
        station::disply_text_alarms(ws, "");
        station::disply_text_alarms(ws, "Download complete");
        if (count > kImportAbove) products::Import_OMD_file(ws, tempName);
    } catch (...) {
        station::disply_text_alarms(ws, "Sync Err: " + db::ErrorText(std::current_exception()));
    }
}

void cmd_sync_kettlewick_Click(Workstation& ws) {
    Sync_with_Kettlewick(ws);
}

} // namespace acq
