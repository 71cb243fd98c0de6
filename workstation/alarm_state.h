#pragma once
// What the alarm monitor keeps for the run.

#include <QDateTime>
#include <QString>
#include <array>
#include <cstdint>

namespace alarms {

constexpr int kDrillOffRates = 106;

struct AlarmState {
    // Seconds until the conditions are next tested; 0 at start, so the
    // first pass comes in the first second.
    int32_t alarm_repeat_countdown = 0;
    // The text of this pass's alarm.
    QString alarm_message;
    // The foot to alarm on next, or the foot in progress for the long foot
    // test: the two share it.
    double alarm_foot = 0;
    int32_t alarm_foot_seconds = 0;
    QDateTime alarm_time;
    double drill_off_foot = 0;
    // Minutes per foot of the latest feet, newest at 0.
    std::array<double, kDrillOffRates> drill_off_rates{};

    // The monitor's current message; while it stands, the alarm box is not
    // cleared by a packet without an instrument alarm.
    QString alarmMonitorText;
    // A bad date or time already logged, so a typing error is logged once
    // rather than every second.
    QString badAlarmTime;
    // Passes that raised an alarm, and sounds that could not be played.
    long alarmsRaised = 0;
    long soundFailures = 0;
};

} // namespace alarms
