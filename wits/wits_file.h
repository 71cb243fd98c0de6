#pragma once
// WITS item names from WITSconfig_V10.txt.

#include <QString>

class Workstation;

namespace wits {

inline const QString kUnknownItem = QStringLiteral("Unknown");

void LoadWitsFile(Workstation& ws);
// The name of an item code, or "Unknown".
QString WitsItemName(const Workstation& ws, int code);

} // namespace wits
