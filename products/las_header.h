#pragma once
// The LAS 2.0 header of the depth files, shared by the depth LAS and the XLS
// file: the full header with every curve, and the short one of the gas only
// file. Each text ends after its last curve line, in CR LF; "~ASCII" is the
// caller's.

#include "products/options.h"

#include <QDate>
#include <QString>
#include <cstdint>

class Workstation;

namespace products {

QString Create_LAS_header(const FileOptions& o, const QDate& today, int32_t first_depth,
                          int32_t last_depth);
QString Create_Gas_Only_LAS_header(const FileOptions& o, const QDate& today, int32_t first_depth,
                                   int32_t last_depth);

// The same from the setup panel as it stands and the workstation's clock.
QString Create_LAS_header(const Workstation& ws, int32_t& first_depth, int32_t& last_depth);
QString Create_Gas_Only_LAS_header(const Workstation& ws, int32_t& first_depth,
                                   int32_t& last_depth);

// The column line of the depth files: "#Depth", the names and the custom
// curves between delimiters, with "TimeDate" at the end when asked.
QString ColumnLine(const FileOptions& o, bool withTimeDate);

} // namespace products
