#pragma once
// The logging category of WITS in and out: "gaschart.wits". Turn it up with
// QT_LOGGING_RULES="gaschart.wits.debug=true".

#include <QLoggingCategory>

namespace wits {

inline const QLoggingCategory& lcWits() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.wits", QtInfoMsg);
    return category;
}

} // namespace wits
