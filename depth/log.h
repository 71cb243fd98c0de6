#pragma once
// The logging category of the lag and rate of penetration passes: "gaschart.depth". Turn it up with
// QT_LOGGING_RULES="gaschart.depth.debug=true".

#include <QLoggingCategory>

namespace depth {

inline const QLoggingCategory& lcDepth() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.depth", QtInfoMsg);
    return category;
}

} // namespace depth
