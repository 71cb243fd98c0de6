#pragma once
// The logging category of the screens: "gaschart.ui". Turn it up with
// QT_LOGGING_RULES="gaschart.ui.debug=true".

#include <QLoggingCategory>

namespace ui {

inline const QLoggingCategory& lcUi() {
    static const QLoggingCategory category("gaschart.ui");
    return category;
}

} // namespace ui
