// The writer of OM_10_config.txt: a header the reader passes over, then
// every tag in one fixed order, the whole file each time.
#include "config/config_file.h"
#include "config/config_tags.h"
#include "platform/files.h"
#include "text/numbers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QCoreApplication>

namespace config {

namespace {

QString ProgramName() {
    const QString name = QCoreApplication::applicationName();
    return name.isEmpty() ? QStringLiteral("gaschart") : name;
}

// A value is one line: a line break inside it would start a line of its
// own, which the reader could take for a tag.
QString OneLine(QString v) {
    v.replace(u'\r', u' ');
    v.replace(u'\n', u' ');
    return v;
}

void WriteEntry(Workstation& ws, const Entry& e, QStringList& out) {
    switch (e.form) {
    case Form::Box:
        out << (e.control(ws).checked() ? e.tag : e.offTag) + e.pad;
        break;
    case Form::Text:
    case Form::Scale:
        out << e.tag + " " + OneLine(e.control(ws).text());
        break;
    case Form::Value:
        out << e.tag + " " + OneLine(e.write(ws));
        break;
    case Form::Colour:
        out << e.tag + " " + QString::number(ws.settings.*e.colour);
        break;
    case Form::Choice: {
        const int n = e.chosen(ws);
        if (n >= 0 && n < e.choices.size()) out << e.choices[n];
        break;
    }
    }
}

} // namespace

QByteArray ConfigText(Workstation& ws) {
    QStringList out;
    out << "The following is the configuration file for the gas chart program"
        << "This allows the program to save and remember settings from the setup panel and the"
        << "control box settings."
        << ""
        << "-------------------------------------------"
        << "Diagnostic Information"
        << "-------------------------------------------"
        << "[APP PATH] " + ws.programDir << "[APP VER] " + station::Revision()
        << "[APP EXE NAME] " + ProgramName() + ".exe"
        << "-------------------------------------------"
        << "Program Function Information"
        << "-------------------------------------------";
    for (const Entry& e : Entries()) WriteEntry(ws, e, out);
    QByteArray bytes;
    for (const QString& line : out) bytes += line.toUtf8() + "\r\n";
    return bytes;
}

void WriteConfigFile(Workstation& ws) {
    const bool ok = platform::ReplaceFile(ws.programFile(kConfigFileName), ConfigText(ws));
    // A folder that can't be written would otherwise say so every minute:
    // one message until a write succeeds again.
    if (!ok && !ws.settings.writeFailed)
        station::disply_text_alarms(ws, "Write Config File Err: " + QString(kConfigFileName) +
                                            " could not be written in " + ws.programDir);
    ws.settings.writeFailed = !ok;
}

} // namespace config
