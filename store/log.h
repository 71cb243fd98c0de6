#pragma once
// The logging category of the job database: open, verify, write, compact: "gaschart.store". Turn it
// up with QT_LOGGING_RULES="gaschart.store.debug=true".

#include <QLoggingCategory>

namespace store {

inline const QLoggingCategory& lcStore() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.store", QtInfoMsg);
    return category;
}

} // namespace store
