#pragma once
// The logging category of WITS in and out: "gaschart.wits". Turn it up with
// QT_LOGGING_RULES="gaschart.wits.debug=true".

#include <QLoggingCategory>

namespace wits {

inline const QLoggingCategory& lcWits() {
    static const QLoggingCategory category("gaschart.wits");
    return category;
}

} // namespace wits
