#include "acquisition/viewer.h"

#include "workstation/workstation.h"

#include <QDesktopServices>
#include <QUrl>

namespace acq {

void text_window_KeyPress(Workstation& ws, QChar key) {
    const QString one(key);
    if (ws.MSComm1.PortOpen()) ws.MSComm1.Output(one);
    if (ws.link.Gsock_state == 7) ws.Winsock_ombri.SendData(one);
}

bool more_data_QueryUnload(Workstation& ws) {
    ws.more_data.form.setVisible(false);
    return true;
}

void lbl_open_errors_Click(Workstation& ws) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(ws.programFile("ERR_LOG.TXT")));
}

void lbl_help_Click(Workstation& ws) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(ws.programFile("Gas_Chart.pdf")));
}

} // namespace acq
