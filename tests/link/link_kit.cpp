#include "link_kit.h"

#include "raw_db.h"

#include "acquisition/main_loop.h"

#include <QTimer>

namespace linktest {

Station::Station() : testkit::Station("LINK.DB") {
    ws.loop.Gstarting_up = false;
    ws.chart.Grefresh_paused = true; // no chart refresh in the middle of a link test
    ws.ports.setScanDevices(false);
    // Connected after the workstation's own handler, so it runs after each
    // intake tick and sees every packet the parser took (one per tick).
    QObject::connect(ws.timer("tmrDataArrival"), &QTimer::timeout, [this] {
        const QString p = ws.packet.Gombri_data_array[acq::PACKETNUM];
        if (p != lastPacket_) {
            lastPacket_ = p;
            parsed.push_back(p.trimmed().toLong());
        }
    });
}

Station::~Station() {
    ws.closing = true;
    ws.StopTimers();
    ws.Winsock_ombri.Close();
    ws.MSComm1.SetPortOpen(false);
}

void Station::startIntake() {
    ws.timer("tmrDataArrival")->start();
    ws.timer("tmr_delay")->start();
}

void Station::useTcp(quint16 port) {
    ws.link.Guse_tcp = true;
    ws.link.Gtcp_host = QStringLiteral("127.0.0.1");
    ws.link.Gtcp_port = QString::number(port);
}

bool Station::startTcpSimulator(const QStringList& args) {
    const quint16 port = FreePort();
    sim = std::make_unique<Simulator>(folder.file("sim.log"));
    if (!sim->start(QStringList{"--tcp", QString::number(port)} + args)) return false;
    useTcp(port);
    startIntake();
    return true;
}

bool Station::startSerialSimulator(PortPair& pair, int n, const QStringList& args) {
    if (!pair.start()) return false;
    sim = std::make_unique<Simulator>(folder.file("sim.log"));
    if (!sim->start(QStringList{"--serial", pair.farEnd()} + args)) return false;
    ws.ports.place(n, pair.workstationEnd());
    startIntake();
    return true;
}

bool Station::stopSimulatorAndDrain() {
    sim->stop();
    Pump(300); // socat's hop on a serial link
    return PumpUntil(3000, [&] { return drained() && ws.link.Gsock_state != 7; });
}

bool Station::superviseUntilAttempt() {
    for (int i = 0; i < 70; ++i) {
        const bool last = ws.link.Glink_countdown <= 1;
        acq::tmr_refresh_Timer(ws);
        Pump(5);
        if (last) return true;
    }
    return false;
}

std::set<long> Station::stored() const {
    return testkit::RawDb(job, testkit::RawDb::Access::ReadOnly)
        .numbers("SELECT PACKET_NUM FROM OMBRI_DB_010");
}

bool Station::drained() {
    const bool sockEmpty = ws.Winsock_ombri.BytesReceived() == 0;
    const bool serialEmpty = !ws.MSComm1.PortOpen() || ws.MSComm1.InBufferCount() == 0;
    return sockEmpty && serialEmpty && ws.packet.Garrival_buffer.isEmpty() &&
           !ws.packet.Gline_buffer.contains(QChar(13));
}

} // namespace linktest
