#include "stats/day_block.h"

#include "stats/report_text.h"
#include "text/numbers.h"

namespace stats {

namespace {

// A depth of 50000 ft or more is a spike of the geolograph: the depth before
// it stands.
constexpr double kDepthSpike = 50000;
// The report counts one connection for every 30 ft drilled, whatever the
// rig's joints.
constexpr double kFeetPerConnection = 30;
// A connection is a stay off bottom after more than this many records on
// bottom; a shorter lift joins the connection before it.
constexpr int32_t kDrillRun = 50;

QString Percent(double part, double whole) {
    return text::Format(part / whole * 100, u"00.0") + "%";
}

} // namespace

void DayScan::startBlock(const db::Variant& depthField) {
    c_ = DailyCounters{};
    const double d = depthField.toDouble();
    if (d < kDepthSpike) depth_ = d;
    last_foot_ = depth_;
    bit_ = 0;
}

void DayScan::takeDepth(const db::Variant& depthField, const db::Variant& bitField) {
    const double d = depthField.toDouble();
    if (d < kDepthSpike) depth_ = d;
    // Every change of whole foot counts as a foot drilled, back up the hole
    // as well as down.
    if (text::Int(depth_) != text::Int(last_foot_)) {
        last_foot_ = depth_;
        c_.feet += 1;
    }
    if (!bitField.isNull()) bit_ = bitField.toDouble();
}

void DayScan::offBottom() {
    ++c_.off_records;
    if (c_.drill_run > kDrillRun) {
        c_.drill_run = 0;
        if (c_.conn_index < kMaxConnections) ++c_.conn_index;
    }
    c_.conn_seconds[size_t(c_.conn_index)] += kSecondsPerRecord;
}

void DayScan::takeGas(double g) {
    if (g > c_.gas_max) c_.gas_max = g;
    c_.gas_sum += g;
}

QString DayScan::figures(const QString& endDate, const QString& endTime) {
    const int64_t on_seconds = int64_t(c_.on_records) * kSecondsPerRecord;
    // Time with no record counts as off bottom: a block is always a whole
    // day, however many records it holds.
    const int64_t off_seconds = kSecondsPerDay -
                                int64_t(kSecondsPerRecord) * (c_.on_records + c_.off_records) +
                                int64_t(c_.off_records) * kSecondsPerRecord;
    const double average_gas = c_.gas_sum / kRecordsPerDay;
    const double average_rop = c_.rop_count > 0 ? c_.rop_sum / c_.rop_count : 0;

    QStringList l;
    l << "Total Off Bottom Time: " + Duration(off_seconds);
    l << "Total On Bottom Time: " + Duration(on_seconds);
    const double all = double(on_seconds + off_seconds);
    if (all < 1) {
        l << "Percentage Off Bottom Time: Unknown";
        l << "Percentage Drilling Time: Unknown";
    } else {
        l << "Percentage Off Bottom Time: " + Percent(double(off_seconds), all);
        l << "Percentage Drilling Time: " + Percent(double(on_seconds), all);
    }
    if (c_.conn_index < 1) {
        l << "Time Per Connection Average: Unknown";
    } else {
        int64_t total = 0;
        for (int i = 0; i <= c_.conn_index; ++i) total += c_.conn_seconds[size_t(i)];
        // A block that drilled nothing repeats the last average it can.
        if (c_.feet > 0) average_ = text::CLng(double(total) / (c_.feet / kFeetPerConnection));
        l << "Time Per Connection Average: " + Duration(average_);
    }
    l << "Average Gas Units: " + text::Format(average_gas, u"0");
    l << "Average (ON BOTTOM) ROP Min/Ft: " + text::Format(average_rop, u"0.00");
    if (average_rop <= 0)
        l << "Average (ON BOTTOM) ROP Ft/Hr: Unknown";
    else
        l << "Average (ON BOTTOM) ROP Ft/Hr: " + text::Format(60 / average_rop, u"0.00");
    l << "Max Gas Units: " + text::Format(c_.gas_max, u"0");
    l << "Total Ft Drilled: " + text::Format(c_.feet, u"0");
    l << "END DATE: " + endDate;
    l << "END TIME: " + endTime;
    return l.join("\r\n") + "\r\n";
}

} // namespace stats
