#include "platform/stall_watch.h"

#include <QDateTime>

namespace platform {

StallWatch::StallWatch(const QString& file, int period, int lineEvery)
    : file_(file), period_(period), lineEvery_(lineEvery) {
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) return;
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &StallWatch::tick);
    timer_.start(period_);
    sinceTick_.start();
    sinceLine_.start();
}

void StallWatch::tick() {
    // The gap beyond the timer's own period is the time the loop was held.
    longest_ = std::max(longest_, sinceTick_.restart() - period_);
    if (sinceLine_.elapsed() < lineEvery_) return;
    sinceLine_.restart();
    file_.write(QByteArray::number(QDateTime::currentMSecsSinceEpoch()) + ' ' +
                QByteArray::number(longest_) + '\n');
    file_.flush();
    longest_ = 0;
}

} // namespace platform
