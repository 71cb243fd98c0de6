// The instrument simulator over TCP on 127.0.0.1, end to end.
#include "acquisition/link.h"
#include "acquisition/main_loop.h"
#include "link_kit.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>

using namespace linktest;

namespace {

// "LAGDEPTH x c OK" lines as the simulator logged them.
int CountLag(const Simulator& sim, const char* verdict) {
    int n = 0;
    for (const QString& l : sim.lines("LAGDEPTH ")) n += l.endsWith(QLatin1String(verdict));
    return n;
}

} // namespace

TEST(TcpLink, RefusedAndSilentHostsCountDownAndTheNextConnectionIsAnsweredAndStored) {
    Station st;
    const quint16 port = FreePort(); // nothing listens there yet
    st.useTcp(port);
    st.startIntake();

    acq::winsock_connect(st.ws);
    EXPECT_FALSE(st.ws.link.Gdetector_found);

    // An address on a network nobody answers for: the try gives up on its
    // own after its budget, and the program goes on.
    st.ws.link.Gtcp_host = QStringLiteral("192.0.2.1");
    st.ws.link.Glink_countdown = 1;
    ASSERT_TRUE(st.superviseUntilAttempt());
    EXPECT_EQ(st.ws.link.Glink_countdown, 61);

    // The instrument comes up: the countdown brings the next try, which
    // holds, asks the instrument for its state, and its packets are stored.
    st.sim = std::make_unique<Simulator>(st.folder.file("sim.log"));
    Simulator& sim = *st.sim;
    ASSERT_TRUE(
        sim.start({"--tcp", QString::number(port), "--interval", "0.3", "--first-packet", "1"}));
    st.ws.link.Gtcp_host = QStringLiteral("127.0.0.1");
    st.ws.link.Glink_countdown = 3;
    ASSERT_TRUE(st.superviseUntilAttempt());
    EXPECT_TRUE(st.ws.fm_Gas_Chart.cmd_comm1.caption().startsWith("Connected TCP "));
    Pump(2500);
    EXPECT_EQ(sim.count("COMMAND STATUS"), 1);
    EXPECT_EQ(st.ws.fm_setup.cmd_secure.caption(), "Two Way Inactive");
    ASSERT_TRUE(st.stopSimulatorAndDrain());
    const std::set<long> sent = sim.sent();
    ASSERT_GE(sent.size(), 6u);
    EXPECT_EQ(st.parsedSet().size(), st.parsed.size()) << "a packet was taken twice";
    EXPECT_EQ(st.stored(), sent);
    // Each packet was answered with its lag depth line, as the instrument
    // checks it, and the keep-alive byte behind it.
    const int good = CountLag(sim, " OK");
    EXPECT_EQ(CountLag(sim, " BAD"), 0);
    EXPECT_GE(good, int(sent.size()) - 2);
    EXPECT_NEAR(sim.count("KEEPALIVE "), good, 1);
}

TEST(TcpLink, GarbageLosesNoGoodPacketAndWithoutKeepAliveOnlyTheLagDepthGoesBack) {
    Station st;
    st.ws.fm_setup.ck_Mainlog_NoKeepalive.setChecked(true);
    ASSERT_TRUE(st.startTcpSimulator(
        {"--interval", "0.3", "--first-packet", "1000", "--garbage", "--seed", "5"}));
    Simulator& sim = *st.sim;
    acq::winsock_connect(st.ws);
    ASSERT_TRUE(PumpUntil(20000, [&] { return sim.count("GARBAGE ") >= 6; }));
    Pump(700);
    ASSERT_TRUE(st.stopSimulatorAndDrain());

    const std::set<long> stored = st.stored();
    for (long p : sim.sent())
        EXPECT_TRUE(stored.count(p)) << "packet " << p << " lost in the noise";
    EXPECT_GE(CountLag(sim, " OK"), 5);
    EXPECT_EQ(sim.count("KEEPALIVE "), 0);
}

TEST(TcpLink, ACloseThatCannotFinishGivesUpAfterFourSeconds) {
    Station st;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    auto& sock = st.ws.Winsock_ombri;
    sock.RemoteHost = QStringLiteral("127.0.0.1");
    sock.RemotePort = server.serverPort();
    sock.Connect();
    ASSERT_TRUE(
        PumpUntil(3000, [&] { return sock.State() == 7 && server.hasPendingConnections(); }));
    // A far end that takes nothing: what the workstation sends stays on its
    // way out, and the close can't finish.
    QTcpSocket* far = server.nextPendingConnection();
    far->setReadBufferSize(1);
    acq::Winsock_state(st.ws);
    sock.SendData(QString(32 << 20, QLatin1Char('x')));

    int tenths = 0;
    QTimer* delay = st.ws.timer("tmr_delay");
    QObject::connect(delay, &QTimer::timeout, [&] { ++tenths; });
    delay->setInterval(10);
    delay->start();
    acq::close_winsock(st.ws);
    EXPECT_EQ(st.ws.link.Gsock_state, 8);
    EXPECT_GE(tenths, 40);
    EXPECT_LE(tenths, 44);
}
