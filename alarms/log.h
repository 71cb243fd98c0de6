#pragma once
// The logging category of the alarm monitor: "gaschart.alarms". Turn it up with
// QT_LOGGING_RULES="gaschart.alarms.debug=true".

#include <QLoggingCategory>

namespace alarms {

inline const QLoggingCategory& lcAlarms() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.alarms", QtInfoMsg);
    return category;
}

} // namespace alarms
