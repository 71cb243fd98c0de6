#pragma once
// What the alarm monitor keeps for the run.

#include <QString>

namespace alarms {

struct AlarmState {
    // The monitor's current message; while it stands, the alarm box is not
    // cleared by a packet without an instrument alarm.
    QString alarmMonitorText;
};

} // namespace alarms
