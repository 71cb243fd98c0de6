#pragma once
// The logging category of the gas chart and its redraws: "gaschart.chart". Turn it up with
// QT_LOGGING_RULES="gaschart.chart.debug=true".

#include <QLoggingCategory>

namespace chart {

inline const QLoggingCategory& lcChart() {
    static const QLoggingCategory category("gaschart.chart");
    return category;
}

} // namespace chart
