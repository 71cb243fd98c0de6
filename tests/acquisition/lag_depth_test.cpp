// The lag depth line the workstation answers every packet with, byte for
// byte, over a real serial line; over TCP the link suite's simulator checks
// it (tcp_link_test), here what else a TCP packet and greeting bring.
#include "acq_fixture.h"
#include "far_end.h"

#include <QSerialPort>

using acqtest::AcqTest;

namespace {

TEST(LagDepthLine, ATieIsRoundedAwayFromZero) {
    // 12.25 is a true tie in binary. No line feed.
    EXPECT_EQ(acq::LagDepthLine(12.25), "LAGDEPTH 12.3 45\r");
}

class LagDepthAnswer : public AcqTest {};

// "LAGDEPTH " sums to 617; "1234.5" to 301; 918 - 3*256 = 150.
TEST_F(LagDepthAnswer, OnTheSerialLineEachPacketIsAnsweredWithoutKeepAlive) {
    acqtest::PtyPair pty;
    ASSERT_NO_FATAL_FAILURE(openSerial(pty, 3));
    QSerialPort instrument;
    instrument.setPortName(pty.farEnd());
    ASSERT_TRUE(instrument.open(QIODevice::ReadWrite));
    ws.depth.Glag_depth_now = 1234.5;
    instrument.write("*KW1,03/05/2024,14:00:00,1500\r\n");
    instrument.flush();

    ASSERT_TRUE(intakeUntil([&] { return field(0) == "KW1"; }));
    EXPECT_EQ(readBack(instrument, 20), QByteArray("LAGDEPTH 1234.5 150\r"));
    // The terminal shows the line sent with CR LF.
    EXPECT_TRUE(ws.more_data.text_window.text().endsWith("LAGDEPTH 1234.5 150\r\r\n"));

    ws.MSComm1.SetPortOpen(false);
}

TEST_F(LagDepthAnswer, OverTcpAPacketMakesTheUptimeWholeAndTheGreetingIsAnsweredWithStatus) {
    testkit::FarEnd instrument;
    ASSERT_TRUE(instrument.attach(ws));

    ws.link.Guptime_percent = 40;
    instrument.send("*KW77,03/05/2024,14:00:00,1500.5,22.5\r\n");
    ASSERT_TRUE(intakeUntil([&] { return field(0) == "KW77"; }));
    EXPECT_EQ(ws.link.Guptime_percent, 100);

    instrument.send("TCPCONNECT\r\n");
    EXPECT_TRUE(
        intakeUntil([&] { return ws.more_data.text_window.text().contains("TCPCONNECT"); }));
    EXPECT_TRUE(instrument.receive([](const QByteArray& g) { return g.endsWith("STATUS\r\n"); }))
        << instrument.got.toStdString();
    ws.Winsock_ombri.Close();
}

} // namespace
