#pragma once
// The time log: one row per record in packet order, under a line of column
// names and no LAS header, tab between the values.

#include <QString>

class Workstation;

namespace products {

// False when the file could not be made (the error log says why).
bool Create_LAS_TIME_file(Workstation& ws, const QString& file_name);

// "YYYY-MM-DD HH:MM:SS" as the job keeps a date, turned into
// "MM/DD/YYYY HH:MM:SS"; anything else through the date rules.
QByteArray UsDateTime(const QByteArray& iso);

} // namespace products
