#include "workstation/events.h"

#include "db/connection.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QThread>

Q_LOGGING_CATEGORY(lcLoop, "gaschart.loop")

namespace station {

namespace {
// The live writer runs inside the loop: a job that lets the loop run while
// it holds the file's write lock would make it wait in vain. An edit that
// must be all or nothing does so on purpose, with the writer holding its
// rows back until it ends (store/edit_transaction.h).
void WatchWriteLock(Workstation& ws) {
    if (ws.db.writesHeld) return;
    const QString held = db::Connection::WriteLockHeld();
    if (held.isEmpty()) return;
    ws.loop.yieldsHoldingWriteLock += 1;
    qCWarning(lcLoop) << "the event loop ran while a write lock was held on" << held;
}
} // namespace

void DoEvents(Workstation& ws) {
    WatchWriteLock(ws);
    if (QCoreApplication::instance()) QCoreApplication::processEvents();
}

Pulse::Pulse(Workstation& ws, qint64 everyMs) : ws_(ws), everyMs_(everyMs) {
    since_.start();
}

bool Pulse::beat() {
    if (!due()) return false;
    beatNow();
    return true;
}

void Pulse::beatNow() {
    DoEvents(ws_);
    since_.restart();
}

void WaitEvents(Workstation& ws) {
    QTimer* delay = ws.timer("tmr_delay");
    if (QCoreApplication::instance() && delay && delay->isActive()) {
        WatchWriteLock(ws);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return;
    }
    // No running loop timers (a tool, or a test that ticks by hand): run
    // what is pending and count the tenths ourselves.
    DoEvents(ws);
    QThread::msleep(100);
    if (ws.loop.Gdelay_ticks > 0) ws.loop.Gdelay_ticks -= 1;
}

void DelaySeconds(Workstation& ws, double n) {
    ws.loop.Gdelay_ticks = static_cast<int32_t>(n * 10);
    while (ws.loop.Gdelay_ticks > 0 && !ws.closing) WaitEvents(ws);
}

void UnloadAllForms(Workstation& ws, const QString& name) {
    for (forms::Panel* p : ws.panels())
        if (p->name() != name) p->form.setVisible(false);
}

} // namespace station
