#include "chart/day_number.h"

#include <QDate>
#include <cmath>

namespace chart {

namespace {

bool Digits(const QString& s, int at, int n, int& out) {
    out = 0;
    for (int k = 0; k < n; ++k) {
        const QChar c = s[at + k];
        if (c < u'0' || c > u'9') return false;
        out = out * 10 + (c.unicode() - u'0');
    }
    return true;
}

const qint64 kOrigin = QDate(1899, 12, 30).toJulianDay();

} // namespace

double DayNumber(const db::Variant& v) {
    if (v.isNull()) return 0;
    try {
        const QString s = v.toIso();
        int y, mo, d, h, mi, sec;
        if (s.size() < 19 || !Digits(s, 0, 4, y) || !Digits(s, 5, 2, mo) || !Digits(s, 8, 2, d) ||
            !Digits(s, 11, 2, h) || !Digits(s, 14, 2, mi) || !Digits(s, 17, 2, sec))
            return 0;
        const QDate date(y, mo, d);
        if (!date.isValid()) return 0;
        return double(date.toJulianDay() - kOrigin) + (h * 3600 + mi * 60 + sec) / 86400.0;
    } catch (const std::exception&) {
        return 0;
    }
}

double MinutesBetween(double older, double newer) {
    const auto minute = [](double days) { return std::floor(std::round(days * 86400) / 60); };
    return minute(newer) - minute(older);
}

} // namespace chart
