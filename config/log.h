#pragma once
// The logging category of the settings file and the setup panel: "gaschart.config". Turn it up with
// QT_LOGGING_RULES="gaschart.config.debug=true".

#include <QLoggingCategory>

namespace config {

inline const QLoggingCategory& lcConfig() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.config", QtInfoMsg);
    return category;
}

} // namespace config
