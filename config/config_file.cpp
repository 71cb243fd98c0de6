// The file helpers of the configuration module and the timer that keeps
// the settings file current.
#include "config/config_file.h"

#include "platform/files.h"
#include "workstation/workstation.h"

#include <QFile>
#include <QFileInfo>

namespace config {

bool FileExists(const Workstation& ws, const QString& name) {
    const bool whole = (name.size() > 1 && name[1] == u':') || name.startsWith(u'/');
    QFile f(whole ? name : ws.programFile(name));
    if (!QFileInfo(f).isFile()) return false;
    if (!f.open(QIODevice::ReadOnly)) return false;
    const qint64 length = f.size();
    f.close();
    return length >= 0;
}

bool FileNameCheck(const QString&) {
    return false;
}

void AppendErrLog(const Workstation& ws, const QString& text) {
    platform::AppendLine(ws.programFile("ERR_LOG.TXT"), text);
}

// Every minute, whatever else is going on: a crash costs at most a minute
// of settings.
void tmr_save_ini_Timer(Workstation& ws) {
    WriteConfigFile(ws);
}

} // namespace config
