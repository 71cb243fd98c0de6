#pragma once
// The workstation: everything the program holds for the whole run. One
// instance, owned by main() (or by a test over a temporary program folder),
// passed by reference to every handler and timer tick. Each subsystem's
// state is a plain struct of its own under the names the program uses
// (ws.db.Gdb_busy, ws.link.Glink_countdown, ws.wits.Gwits_values ...).

#include "forms/fm_chro.h"
#include "forms/fm_gas_chart.h"
#include "forms/fm_help.h"
#include "forms/fm_secure.h"
#include "forms/fm_setup.h"
#include "forms/fm_wits.h"
#include "forms/more_data.h"
#include "platform/dialogs.h"
#include "platform/port_map.h"
#include "platform/serial_link.h"
#include "platform/sound.h"
#include "platform/tcp_link.h"
#include "workstation/alarm_state.h"
#include "workstation/chart_state.h"
#include "workstation/chro_state.h"
#include "workstation/depth_state.h"
#include "workstation/link_state.h"
#include "workstation/loop_state.h"
#include "workstation/packet_state.h"
#include "workstation/products_state.h"
#include "workstation/services.h"
#include "workstation/settings.h"
#include "workstation/stats_state.h"
#include "workstation/store_state.h"
#include "workstation/timers.h"
#include "workstation/wits_state.h"

#include <QDateTime>
#include <QLockFile>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <random>

namespace station {
// The program revision shown in the title, the message box and the settings.
QString Revision();
} // namespace station

class Workstation {
  public:
    // programDir: the folder of configuration, logs, DB_CUE and the WITS
    // item file. dialogs: the answerer of message boxes and file dialogs;
    // nullptr gives the quiet one that answers No to everything.
    explicit Workstation(const QString& programDir, platform::Dialogs* dialogs = nullptr);
    ~Workstation();
    Workstation(const Workstation&) = delete;
    Workstation& operator=(const Workstation&) = delete;

    const QString programDir;
    // A file in the program folder.
    QString programFile(const QString& name) const { return programDir + "/" + name; }

    acq::PacketState packet;
    acq::LinkState link;
    station::LoopState loop;
    store::StoreState db;
    depth::DepthState depth;
    chart::ChartState chart;
    chromatograph::ChroState chro;
    wits::WitsState wits;
    products::ProductsState products;
    alarms::AlarmState alarms;
    stats::StatsState stats;
    // Kept settings that are not a setup panel control (chart scales,
    // gains, curve colours).
    config::Settings settings;

    forms::FmGasChart fm_Gas_Chart;
    forms::MoreData more_data;
    forms::FmHelp fm_help;
    forms::FmSetup fm_setup;
    forms::FmSecure fm_secure;
    forms::FmWits fm_WITS;
    forms::FmChro fm_chro;
    std::vector<forms::Panel*> panels();

    platform::PortMap ports;
    platform::SerialLink MSComm1{ports};
    platform::SerialLink MSComm2{ports};
    platform::TcpLink Winsock_ombri;
    // The wire to the instrument in use: the serial port while it is open
    // (being scanned, or the instrument found on it), otherwise the socket.
    platform::InstrumentLink& instrument();
    // The instrument is there: found on the open serial port, or the socket
    // connected when the intake last looked (Gsock_state).
    bool instrumentConnected() const;
    // The alarm sound.
    platform::Sound sound;

    station::Services services;

    platform::Dialogs& dialogs() { return *dialogs_; }
    void setDialogs(platform::Dialogs* d);

    // Random numbers in [0, 1); tests seed or replace it to repeat a run.
    std::function<double()> Rnd;
    // A fixed seed holds for the rest of the run: the clock reseeding below
    // then leaves the sequence alone, so a test repeats itself.
    void Randomize(uint32_t seed) {
        rng_.seed(seed);
        seedFixed_ = true;
    }
    // Reseed from the clock, as the login does before each block.
    void Randomize() {
        if (!seedFixed_)
            rng_.seed(static_cast<uint32_t>(QDateTime::currentMSecsSinceEpoch() ^ rng_()));
    }
    // The computer's clock; tests may fix it.
    std::function<QDateTime()> Now = [] { return QDateTime::currentDateTime(); };

    // The named timers. AddTimer makes one with its period (the wiring at
    // the top of the program adds the whole table); StartTimers starts those
    // that run from the start.
    void AddTimer(const station::TimerDef& def);
    QTimer* timer(const QString& name);
    const std::vector<station::TimerDef>& timerDefs() const { return timerDefs_; }
    void StartTimers();
    void StopTimers();

    // Set once the exit has been confirmed: waits and scans stop looping.
    bool closing = false;
    // Held for the run: one copy of the program per program folder.
    std::unique_ptr<QLockFile> singleCopyLock;

  private:
    std::unique_ptr<platform::Dialogs> ownDialogs_;
    platform::Dialogs* dialogs_ = nullptr;
    std::mt19937 rng_{std::random_device{}()};
    bool seedFixed_ = false;
    std::vector<station::TimerDef> timerDefs_;
    std::map<QString, std::unique_ptr<QTimer>> timers_;
};
