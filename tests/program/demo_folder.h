#pragma once
// What a run of the real binary starts from and how it is read: a program
// folder holding the gaschart binary and the demonstration job, with the
// settings of a first run that point the link at the simulator, and the
// words the program saves of its screens.

#include "file_bytes.h"
#include "program_folder.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

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

// "window.control" -> the words it shows, as the program last saved them.
inline QMap<QString, QString> ScreenWords(const QString& file) {
    QMap<QString, QString> out;
    for (const QByteArray& line : testkit::ReadFile(file).split('\n')) {
        const int tab = line.indexOf('\t');
        if (tab > 0)
            out.insert(QString::fromUtf8(line.left(tab)), QString::fromUtf8(line.mid(tab + 1)));
    }
    return out;
}

} // namespace programtest
