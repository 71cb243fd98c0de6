#pragma once
// The tally of joints: one entry for each connection found in the records,
// with the depth it was made at, the length drilled since the one before and
// its time, and the report's line for each.

#include "db/variant.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

namespace stats {

// Entries are kept from index 1; the scan stops once 4999 are taken.
inline constexpr int kTallySize = 5000;

struct TallyArrays {
    std::vector<double> depths = std::vector<double>(kTallySize + 1, 0.0);
    std::vector<QDateTime> times = std::vector<QDateTime>(kTallySize + 1);
    std::vector<double> lengths = std::vector<double>(kTallySize + 1, 0.0);
};

class TallyScan {
  public:
    // One record. True when it makes a connection: the caller then gives its
    // time with connectionAt.
    bool take(const db::Variant& depthField, const db::Variant& bitField);
    void connectionAt(const QDateTime& dt);
    // The arrays are full: the scan ends.
    bool full() const { return next_index_ >= kTallySize; }
    const TallyArrays& arrays() const { return a_; }

  private:
    TallyArrays a_;
    double depth_ = 0;
    double bit_ = 0;
    double last_conn_depth_ = 0;
    int off_count_ = 0;
    bool counted_ = false;
    int next_index_ = 1;
};

// The tally's lines, with an empty line before the first entry of each new
// day that has reached the report hour ("05:00").
QStringList TallyLines(const TallyArrays& a, const QString& reportTime);

} // namespace stats
