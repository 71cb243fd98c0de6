#include "stats/report_text.h"

#include "text/numbers.h"

#include <cmath>

namespace stats {

QString Duration(int64_t s) {
    const double hours = text::Int(double(s) / 3600);
    // The remainders keep the sign of the count, as the figures always have.
    const int64_t minutes = int64_t(text::Int(double(s) / 60)) % 60;
    const int64_t seconds = s % 60;
    return text::Format(hours, u"00") + ":" + text::Format(double(minutes), u"00") + ":" +
           text::Format(double(seconds), u"00");
}

} // namespace stats
