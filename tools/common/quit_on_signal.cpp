#include "tools/common/quit_on_signal.h"

#include <QCoreApplication>
#include <QTimer>
#include <csignal>

namespace {
volatile std::sig_atomic_t gStop = 0;
void Stop(int) {
    gStop = 1;
}
} // namespace

void QuitOnStopSignal() {
    std::signal(SIGTERM, Stop);
    std::signal(SIGINT, Stop);
    // A signal handler may only set a flag; the loop looks at it.
    auto* watch = new QTimer(QCoreApplication::instance());
    QObject::connect(watch, &QTimer::timeout, [] {
        if (gStop) QCoreApplication::quit();
    });
    watch->start(100);
}
