#pragma once
// The logging category of the link to the instrument: scan, connect, what goes over it:
// "gaschart.link". Turn it up with QT_LOGGING_RULES="gaschart.link.debug=true".

#include <QLoggingCategory>

namespace acq {

inline const QLoggingCategory& lcLink() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.link", QtInfoMsg);
    return category;
}

} // namespace acq
