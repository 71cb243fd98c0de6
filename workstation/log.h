#pragma once
// The logging category of the named timers: "gaschart.timers". Turn it up with
// QT_LOGGING_RULES="gaschart.timers.debug=true".

#include <QLoggingCategory>

namespace station {

inline const QLoggingCategory& lcTimers() {
    static const QLoggingCategory category("gaschart.timers");
    return category;
}

} // namespace station
