#include "stats/tally.h"

#include "stats/report_text.h"
#include "text/datetime.h"
#include "text/numbers.h"

#include <cmath>

namespace stats {

namespace {

constexpr double kDepthSpike = 50000;
// Off bottom: the bit more than half a foot above the hole.
constexpr double kOffBottom = 0.5;
// A connection takes a minute at least (ten records and one), and a joint is
// longer than 26 ft: a shorter lift is a wiper trip or a reamed stand.
constexpr int kOffRecords = 11;
constexpr double kShortestJoint = 26;
// A length above this is more than one joint: the start of logging, or a
// connection the records did not see.
constexpr double kLongestJoint = 34;

QString LeftPad(const QString& s, int width) {
    return s.size() >= width ? s : QString(width - s.size(), u' ') + s;
}

// Seconds between two record times as the wall clock reads them: the days
// and times of the records, not the seconds of the local time zone, whose
// clock change would add or lose an hour.
int64_t WallSeconds(const QDateTime& from, const QDateTime& to) {
    return from.date().daysTo(to.date()) * 86400 + from.time().secsTo(to.time());
}

} // namespace

bool TallyScan::take(const db::Variant& depthField, const db::Variant& bitField) {
    const double d = std::fabs(depthField.toDouble());
    if (d < kDepthSpike) depth_ = d;
    if (!bitField.isNull()) bit_ = std::fabs(bitField.toDouble());
    if (depth_ - kOffBottom <= bit_) {
        counted_ = false;
        off_count_ = 0;
        return false;
    }
    ++off_count_;
    // One stay off bottom is one connection, however long it lasts.
    return off_count_ >= kOffRecords && last_conn_depth_ + kShortestJoint < depth_ && !counted_;
}

void TallyScan::connectionAt(const QDateTime& dt) {
    const size_t i = size_t(next_index_);
    a_.depths[i] = depth_;
    a_.times[i] = dt;
    a_.lengths[i] = std::fabs(depth_ - last_conn_depth_);
    last_conn_depth_ = depth_;
    ++next_index_;
    counted_ = true;
}

QStringList TallyLines(const TallyArrays& a, const QString& reportTime) {
    QStringList lines;
    const double reportHour = text::Val(reportTime.left(2));
    QString breakDate;
    bool startMarked = false;
    for (int i = 1; i <= kTallySize && a.depths[size_t(i)] != 0; ++i) {
        const QString time = text::FormatDate(a.times[size_t(i)], u"DD/MMM/YYYY HH:MM:SS");
        const QString date = time.left(11);
        if (date != breakDate && text::Val(time.right(8).left(2)) >= reportHour) {
            lines << QString();
            breakDate = date;
        }
        QString line = LeftPad(QString::number(i), 4) + ", " +
                       LeftPad(text::Format(a.depths[size_t(i)], u"0.0"), 7) + ", " +
                       LeftPad(text::Format(a.lengths[size_t(i)], u"0.0"), 7) + ", " + time + ", ";
        if (i > 1) line += Duration(WallSeconds(a.times[size_t(i - 1)], a.times[size_t(i)]));
        if (a.lengths[size_t(i)] > kLongestJoint) {
            line += startMarked ? "  <- Long Connection" : "  <- Start of logging";
            startMarked = true;
        }
        lines << line;
    }
    return lines;
}

} // namespace stats
