#pragma once
// The logging category of the named timers: "gaschart.timers". Turn it up with
// QT_LOGGING_RULES="gaschart.timers.debug=true".

#include <QLoggingCategory>

namespace station {

inline const QLoggingCategory& lcTimers() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.timers", QtInfoMsg);
    return category;
}

} // namespace station
