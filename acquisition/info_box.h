#pragma once
// The information box of every long job.

#include <QString>

class Workstation;

namespace acq {

void help_msg(Workstation& ws, const QString& text);

} // namespace acq
