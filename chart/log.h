#pragma once
// The logging category of the gas chart and its redraws: "gaschart.chart". Turn it up with
// QT_LOGGING_RULES="gaschart.chart.debug=true".

#include <QLoggingCategory>

namespace chart {

inline const QLoggingCategory& lcChart() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.chart", QtInfoMsg);
    return category;
}

} // namespace chart
