#pragma once
// The logging category of the settings file and the setup panel: "gaschart.config". Turn it up with
// QT_LOGGING_RULES="gaschart.config.debug=true".

#include <QLoggingCategory>

namespace config {

inline const QLoggingCategory& lcConfig() {
    static const QLoggingCategory category("gaschart.config");
    return category;
}

} // namespace config
