#pragma once
// The logging category of the lag and rate of penetration passes: "gaschart.depth". Turn it up with
// QT_LOGGING_RULES="gaschart.depth.debug=true".

#include <QLoggingCategory>

namespace depth {

inline const QLoggingCategory& lcDepth() {
    static const QLoggingCategory category("gaschart.depth");
    return category;
}

} // namespace depth
