#pragma once
// Job files are SQLite files ending in ".DB". Settings and habits carried
// over from the older generation name them ".MDB": such a name means the
// same job under ".DB", unless a file of that very name is there.

#include <QString>

namespace db {

QString JobPath(const QString& path);

} // namespace db
