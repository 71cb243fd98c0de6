#pragma once
// The logging category of the screens: "gaschart.ui". Turn it up with
// QT_LOGGING_RULES="gaschart.ui.debug=true".

#include <QLoggingCategory>

namespace ui {

inline const QLoggingCategory& lcUi() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.ui", QtInfoMsg);
    return category;
}

} // namespace ui
