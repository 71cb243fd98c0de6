#include "acquisition/viewer.h"

#include "workstation/workstation.h"

#include <QDesktopServices>
#include <QUrl>

namespace acq {

void text_window_KeyPress(Workstation& ws, QChar key) {
    const QString one(key);
    platform::InstrumentLink& link = ws.instrument();
    if (link.state() == platform::LinkState::Open) link.write(one);
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
