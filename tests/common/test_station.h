#pragma once
// The one test station: a workstation wired as the program wires it, over a
// temporary program folder, with scripted dialogs and, when asked, a blank
// job in DB_CUE named in txt_db_path. Suites add what they need around it.

#include "db/schema.h"
#include "program_folder.h"
#include "scripted_dialogs.h"
#include "workstation/workstation.h"

#include <QDir>
#include <QStringList>
#include <ostream>

namespace testkit {

// The clock a test may fix: 14:07:09 on 5 March 2024, which the logs show
// as "14:07:09" and "03/05/2024".
inline QDateTime FixedNow() {
    return QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9));
}

struct Station {
    ProgramFolder folder;
    ScriptedDialogs dialogs;
    WiredWorkstation ws{folder.path(), &dialogs};
    QString job;

    // jobName: a job of that name in DB_CUE, named in txt_db_path and made
    // blank unless makeJob is false; empty for none.
    explicit Station(const QString& jobName = {}, bool makeJob = true) {
        if (jobName.isEmpty()) return;
        QDir().mkpath(folder.file("DB_CUE"));
        job = folder.file("DB_CUE/" + jobName);
        if (makeJob) db::MakeBlankJob(job, db::kRecordTable);
        ws.fm_Gas_Chart.txt_db_path.setText(job);
    }

    // Every line shown through the message box so far.
    QStringList messages() const {
        return ws.fm_Gas_Chart.txt_message.text().split("\r\n", Qt::SkipEmptyParts);
    }
    QString lastMessage() const {
        const QStringList m = messages();
        return m.isEmpty() ? QString() : m.last();
    }
    bool saw(const QString& text) const { return messages().contains(text); }
};

} // namespace testkit

// Readable failures: gtest prints Qt strings as their text.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QStringList& l, std::ostream* os) {
    *os << '{' << l.join(" | ").toStdString() << '}';
}
