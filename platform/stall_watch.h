#pragma once
// How long the event loop was away: a 10 ms timer notes the longest gap
// between two of its ticks, and once a second appends a line
// "<milliseconds since the epoch> <longest gap in ms>" to a file. A soak of
// the program reads it to see whether any job held the loop too long.

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>

namespace platform {

class StallWatch : public QObject {
  public:
    // period: the tick the gaps are measured with; lineEvery: how often a
    // line is written.
    explicit StallWatch(const QString& file, int period = 10, int lineEvery = 1000);
    bool isOpen() const { return file_.isOpen(); }
    // The longest gap since the last line, in ms.
    qint64 longest() const { return longest_; }

  private:
    void tick();

    QFile file_;
    QTimer timer_;
    QElapsedTimer sinceTick_;
    QElapsedTimer sinceLine_;
    int period_;
    int lineEvery_;
    qint64 longest_ = 0;
};

} // namespace platform
