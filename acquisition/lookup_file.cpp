// The instrument address look-up: a unit number typed on the setup panel
// finds its address and port in RDVlookup.txt beside the program.
#include "acquisition/link.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

#include <QFile>
#include <QTextStream>

namespace acq {

namespace {

const QString kTitle = QStringLiteral("LOOK UP TABLE");

void Say(Workstation& ws, const QString& text) {
    ws.dialogs().MsgBox(text, platform::Buttons::Ok, kTitle, platform::Icon::Exclamation);
}

} // namespace

void cmd_KW_lut_Click(Workstation& ws) {
    const QString typed = ws.fm_setup.txt_KW_lut.text();
    if (text::Val(typed) == 0 || text::Val(typed.right(3)) < 1 || typed.size() != 4) {
        Say(ws, QStringLiteral(
                    "You will need to enter a correct 4 digit number to use the look up table."));
        return;
    }
    readlookupfile(ws);
}

void readlookupfile(Workstation& ws) {
    auto& setup = ws.fm_setup;
    const QString typed = setup.txt_KW_lut.text();
    if (typed.size() != 4) {
        Say(ws, QStringLiteral("The Value must be a 4 digit number"));
        return;
    }
    const double unit = text::Val(typed.right(3));

    QFile file(ws.programFile(QStringLiteral("RDVlookup.txt")));
    if (!file.exists() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        Say(ws, QStringLiteral("The Lookup table file is not found RDVlookup.txt"));
        return;
    }
    QTextStream in(&file);
    bool found = false;
    while (!in.atEnd()) {
        const QString line = in.readLine();
        if (line.size() <= 10) continue;
        // unit number, address and port, one blank apart
        const QStringList parts = line.split(QLatin1Char(' '));
        if (parts.size() < 3) continue;
        if (text::RoundEven(text::Val(parts[0])) != unit) continue;
        setup.txt_TCP_ip_port.setText(parts[1] + ":" + parts[2]);
        found = true;
        break;
    }
    if (!found) {
        Say(ws, QStringLiteral("Serial number not found in look up table"));
        return;
    }
    if (setup.ck_Use_TCP.checked()) {
        ws.link.Guse_tcp = true;
        Check_TCP_ip_port(ws);
    } else {
        ws.link.Guse_tcp = false;
    }
}

} // namespace acq
