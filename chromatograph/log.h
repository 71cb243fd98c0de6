#pragma once
// The logging category of the chromatograph runs: "gaschart.chromatograph". Turn it up with
// QT_LOGGING_RULES="gaschart.chromatograph.debug=true".

#include <QLoggingCategory>

namespace chromatograph {

inline const QLoggingCategory& lcChro() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.chromatograph", QtInfoMsg);
    return category;
}

} // namespace chromatograph
