// Item names of WITSconfig_V10.txt: one "code name" a line, read once at
// start-up. Only names come from the file; where a value goes is the role
// table's business.
#include "wits/wits_file.h"

#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QFile>
#include <QFileInfo>

namespace wits {

namespace {
const QString kFileName = QStringLiteral("WITSconfig_V10.txt");
// Lines read in all, comments and short lines included.
constexpr int kMaxLines = 250;

// Splits at CR LF, CR or LF alike, as the file may come from any editor.
QStringList Lines(const QString& all) {
    QString s = all;
    s.replace("\r\n", "\n");
    s.replace('\r', '\n');
    QStringList lines = s.split('\n');
    // A final line end does not start another line.
    if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    return lines;
}
} // namespace

void LoadWitsFile(Workstation& ws) {
    auto& w = ws.wits;
    w.WITS_item_codes.fill(0);
    w.WITS_item_names.fill(QString());
    w.itemCount = 0;

    const QString path = ws.programFile(kFileName);
    if (!QFileInfo::exists(path)) {
        // Not the operator's problem: every item then reads "Unknown".
        station::write_function_log(ws, text::ShortTime(ws.Now().time()) +
                                            " File not found: " + kFileName);
        return;
    }
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        station::disply_text_alarms(ws, "LOAD WITS ERR: " + f.errorString());
        return;
    }
    const QStringList lines = Lines(QString::fromLatin1(f.readAll()));
    const int n = std::min<int>(kMaxLines, static_cast<int>(lines.size()));
    for (int i = 0; i < n; ++i) {
        const QString& line = lines[i];
        if (line.startsWith('\'') || line.size() <= 4) continue;
        // Four digits of code, one separator, then the name.
        w.WITS_item_codes[w.itemCount] = text::CInt(text::Val(QStringView(line).left(4)));
        w.WITS_item_names[w.itemCount] = line.mid(5);
        ++w.itemCount;
    }
}

QString WitsItemName(const Workstation& ws, int code) {
    QString name = kUnknownItem;
    // The last entry of a code wins, so a rig's own line added at the end
    // overrides the standard name.
    for (int i = 0; i < ws.wits.itemCount; ++i)
        if (ws.wits.WITS_item_codes[i] == code) name = ws.wits.WITS_item_names[i];
    return name;
}

} // namespace wits
