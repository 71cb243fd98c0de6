#pragma once
// The logging category of the statistics and the tally: "gaschart.stats". Turn it up with
// QT_LOGGING_RULES="gaschart.stats.debug=true".

#include <QLoggingCategory>

namespace stats {

inline const QLoggingCategory& lcStats() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.stats", QtInfoMsg);
    return category;
}

} // namespace stats
