#include "workstation/workstation.h"

#include "workstation/log.h"

#include <ctime>

namespace {
// Every record's time goes through the local clock. With TZ unset the C
// library looks at /etc/localtime again at each conversion: a file system
// call for every few records of a long pass, most of an export's time on a
// busy disk. Naming the zone file lets it keep what it read; a change of
// the machine's zone is then seen at the next start, which keeps a job's
// times in one zone anyway.
void ReadTheZoneOnce() {
    if (!qEnvironmentVariableIsEmpty("TZ")) return;
    qputenv("TZ", ":/etc/localtime");
    tzset();
}
} // namespace

Workstation::Workstation(const QString& dir, platform::Dialogs* dialogs) : programDir(dir) {
    ReadTheZoneOnce();
    setDialogs(dialogs);
    Rnd = [this] { return std::uniform_real_distribution<double>(0.0, 1.0)(rng_); };
}

Workstation::~Workstation() {
    StopTimers();
}

void Workstation::AddTimer(const station::TimerDef& def) {
    auto t = std::make_unique<QTimer>();
    t->setInterval(def.periodMs);
    t->setObjectName(def.name);
    auto tick = def.tick;
    QObject::connect(t.get(), &QTimer::timeout, [this, tick] {
        // A tick never takes the loop down: whatever escapes is noted and
        // the next tick comes as usual.
        try {
            tick(*this);
        } catch (const std::exception& e) {
            qCWarning(station::lcTimers) << "timer tick failed:" << e.what();
        } catch (...) {
            qCWarning(station::lcTimers) << "timer tick failed";
        }
    });
    timers_[def.name] = std::move(t);
    std::erase_if(timerDefs_,
                  [&](const station::TimerDef& d) { return QString(d.name) == def.name; });
    timerDefs_.push_back(def);
}

void Workstation::setDialogs(platform::Dialogs* d) {
    if (d) {
        dialogs_ = d;
        return;
    }
    if (!ownDialogs_) ownDialogs_ = std::make_unique<platform::QuietDialogs>();
    dialogs_ = ownDialogs_.get();
}

std::vector<forms::Panel*> Workstation::panels() {
    return {&fm_Gas_Chart, &fm_chro, &fm_help, &fm_setup, &fm_secure, &more_data, &fm_WITS};
}

platform::InstrumentLink& Workstation::instrument() {
    if (MSComm1.PortOpen()) return MSComm1;
    return Winsock_ombri;
}

bool Workstation::instrumentConnected() const {
    return (MSComm1.PortOpen() && link.Gdetector_found) || link.Gsock_state == 7;
}

QTimer* Workstation::timer(const QString& name) {
    auto it = timers_.find(name);
    return it == timers_.end() ? nullptr : it->second.get();
}

void Workstation::StartTimers() {
    for (const station::TimerDef& def : timerDefs_)
        if (def.runsFromStart) timers_[def.name]->start();
}

void Workstation::StopTimers() {
    for (auto& [name, t] : timers_) t->stop();
}

void station::make_chart(Workstation& ws) {
    if (ws.services.make_chart) ws.services.make_chart(ws);
}

QString station::Revision() {
    return QStringLiteral(GASCHART_REVISION);
}
