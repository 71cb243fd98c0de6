#pragma once
// What a run of the real binary starts from and how it is read: a program
// folder holding the gaschart binary and the demonstration job, with the
// settings of a first run that point the link at the simulator, and the
// words the program saves of its screens.

#include "program_folder.h"
#include "raw_db.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <set>

namespace programtest {

// The job's path; empty when the binary, the job or the settings could not
// be put in place. `settings` are further lines after the link's.
inline QString MakeDemoFolder(const testkit::ProgramFolder& folder, quint16 port,
                              const QByteArray& settings = {}) {
    const QString job = folder.file("DB_CUE/V11_DEMO.DB");
    QDir().mkpath(QFileInfo(job).path());
    QFile config(folder.file("OM_10_config.txt"));
    if (!QFile::copy(GASCHART_BINARY_DIR "/gaschart", folder.file("gaschart")) ||
        !QFile::copy(GASCHART_BINARY_DIR "/DB_CUE/V11_DEMO.DB", job) ||
        !config.open(QIODevice::WriteOnly))
        return {};
    config.write("[TCP IP] 127.0.0.1\r\n[TCP PORT] " + QByteArray::number(port) +
                 "\r\n[USE TCP]\r\n[USE ETHERNET]\r\n" + settings);
    return job;
}

// Starts the folder's gaschart on the given Qt platform, saving its screens
// to pictures/; false when it did not start.
inline bool StartProgram(QProcess& program, const testkit::ProgramFolder& folder,
                         const QString& platform = "offscreen") {
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", platform);
    program.setProcessEnvironment(env);
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(folder.file("gaschart"), {"--pictures", folder.file("pictures")});
    return program.waitForStarted(10000);
}

// Packet numbers from first on stored in the job, read as another program
// would read them while the workstation writes.
inline std::set<long> StoredFrom(const QString& job, long first) {
    return testkit::RawDb(job, testkit::RawDb::Access::ReadOnly)
        .numbers(QString("SELECT PACKET_NUM FROM OMBRI_DB_010 WHERE PACKET_NUM >= %1").arg(first));
}

// "window.control" -> the words it shows, as the program last saved them.
inline QMap<QString, QString> ScreenWords(const QString& file) {
    QMap<QString, QString> out;
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly)) return out;
    for (const QByteArray& line : f.readAll().split('\n')) {
        const int tab = line.indexOf('\t');
        if (tab > 0)
            out.insert(QString::fromUtf8(line.left(tab)), QString::fromUtf8(line.mid(tab + 1)));
    }
    return out;
}

} // namespace programtest
