#pragma once
// Whole files read and written the plain way, for tests that set up or
// check a file by its bytes.

#include <QByteArray>
#include <QString>

namespace testkit {

// The whole file; empty when it is missing or can't be read.
QByteArray ReadFile(const QString& path);
// Writes the whole file, making its folder first; false when it can't.
bool WriteFile(const QString& path, const QByteArray& bytes);
// SHA-256 of the whole file; empty when it is missing.
QByteArray FileDigest(const QString& path);

} // namespace testkit
