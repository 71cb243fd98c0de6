#pragma once
// One line of an OMD file read into the working fields of the importer: a
// "#" line of the program's own export, or an "@" line of the instrument's
// log. The fields carry over from line to line, so a short "@" line keeps
// what the line before it left in the columns it does not name.

#include <QByteArray>
#include <QString>
#include <array>

namespace products {

using OmdFields = std::array<QByteArray, 42>;

enum class OmdLine { Record, Bad };

// fields: the working fields (all " " at the start of a file). forced: the
// "Import Bad OMD" box; an "@" line then takes the running record count as
// its packet number, which count is advanced for every "@" line.
OmdLine ReadOmdLine(const QByteArray& line, OmdFields& fields, long& recordCount, bool forced);

} // namespace products
