#include "program_folder.h"

#include "acquisition/tick_table.h"
#include "file_bytes.h"

#include <QFile>
#include <QFileInfo>

namespace testkit {

ProgramFolder::ProgramFolder() {
    path_ = dir_.path();
    QFile::copy(QStringLiteral(GASCHART_SOURCE_DIR "/resources/WITSconfig_V10.txt"),
                file("WITSconfig_V10.txt"));
}

QString ProgramFolder::read(const QString& name) const {
    return QString::fromLatin1(ReadFile(file(name)));
}

bool ProgramFolder::exists(const QString& name) const {
    return QFileInfo::exists(file(name));
}

WiredWorkstation::WiredWorkstation(const QString& dir, platform::Dialogs* dialogs)
    : Workstation(dir, dialogs) {
    acq::Wire(*this);
}

} // namespace testkit
