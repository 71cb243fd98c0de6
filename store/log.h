#pragma once
// The logging category of the job database: open, verify, write, compact: "gaschart.store". Turn it
// up with QT_LOGGING_RULES="gaschart.store.debug=true".

#include <QLoggingCategory>

namespace store {

inline const QLoggingCategory& lcStore() {
    static const QLoggingCategory category("gaschart.store");
    return category;
}

} // namespace store
