#pragma once
// One day's block of the daily statistics: the counters a block clears at its
// start, what each record adds to them, and the figures written at its end.

#include "db/variant.h"

#include <QString>
#include <array>
#include <cstdint>

namespace stats {

// The most connection slots a day keeps; later connections add to the last.
inline constexpr int kMaxConnections = 5000;

struct DailyCounters {
    int32_t on_records = 0;
    int32_t off_records = 0;
    double rop_sum = 0;
    int32_t rop_count = 0;
    double gas_sum = 0;
    double gas_max = 0;
    double feet = 0;
    int32_t drill_run = 0;
    int32_t conn_index = 0;
    std::array<int32_t, kMaxConnections + 1> conn_seconds{};
};

// The walk through the records, block after block. What a block does not
// clear (the depth last read, the connection average last written) carries
// on into the next.
class DayScan {
  public:
    // A new block at the record whose DEPTH is given.
    void startBlock(const db::Variant& depthField);
    // One record. MIN_FT is read only for a record on bottom, through
    // minFt(); a Null where a number is needed fails as the job's handler
    // expects ("Invalid use of Null").
    template <class MinFt>
    void take(const db::Variant& depthField, const db::Variant& bitField, MinFt minFt,
              const db::Variant& gasField) {
        takeDepth(depthField, bitField);
        if (depth_ - 1 < bit_) {
            ++c_.on_records;
            ++c_.drill_run;
            ++c_.rop_count;
            c_.rop_sum += minFt();
        } else {
            offBottom();
        }
        takeGas(gasField.toDouble());
    }
    // The block's figures, a line each with CR LF, ending with its end date
    // and time.
    QString figures(const QString& endDate, const QString& endTime);

    const DailyCounters& counters() const { return c_; }

  private:
    void takeDepth(const db::Variant& depthField, const db::Variant& bitField);
    void offBottom();
    void takeGas(double g);

    DailyCounters c_;
    double depth_ = 0;
    double last_foot_ = 0;
    double bit_ = 0;
    // The connection average of the last block that had one to give.
    int32_t average_ = 0;
};

} // namespace stats
