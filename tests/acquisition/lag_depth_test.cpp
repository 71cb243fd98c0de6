// The lag depth line the workstation answers every packet with, byte for
// byte, and its way out over a real serial line.
#include "acq_fixture.h"
#include "pty_pair.h"

#include "acquisition/parser.h"
#include "acquisition/timers.h"
#include "acquisition/viewer.h"

#include <QElapsedTimer>
#include <QSerialPort>

using acqtest::AcqTest;
using acqtest::Packet;

namespace {

TEST(LagDepthLine, CheckValueIsTheByteSumOfTheTextModulo256) {
    // "LAGDEPTH " is L76 A65 G71 D68 E69 P80 T84 H72 and a blank 32: 617.
    // "1234.5": 49+50+51+52+46+53 = 301; 617+301 = 918; 918-3*256 = 150.
    EXPECT_EQ(acq::LagDepthLine(1234.5), "LAGDEPTH 1234.5 150\r");
    // "0.0": 48+46+48 = 142; 759-2*256 = 247.
    EXPECT_EQ(acq::LagDepthLine(0), "LAGDEPTH 0.0 247\r");
    // 12.25 is exact in binary, so "0.0" meets a true tie: away from zero,
    // "12.3": 49+50+46+51 = 196; 813-3*256 = 45.
    EXPECT_EQ(acq::LagDepthLine(12.25), "LAGDEPTH 12.3 45\r");
    // "49990.0": 52+57+57+57+48+46+48 = 365; 982-3*256 = 214.
    EXPECT_EQ(acq::LagDepthLine(49990), "LAGDEPTH 49990.0 214\r");
    // "7.0": 55+46+48 = 149; 766-2*256 = 254 (a sum that stays below 256
    // after the cut is not cut again).
    EXPECT_EQ(acq::LagDepthLine(7), "LAGDEPTH 7.0 254\r");
    // No line feed, ever.
    EXPECT_FALSE(acq::LagDepthLine(1).contains('\n'));
}

class LagDepthSerial : public AcqTest {};

TEST_F(LagDepthSerial, EachPacketIsAnsweredOnTheSerialLineWithoutKeepAlive) {
    acqtest::PtyPair pty;
    ASSERT_TRUE(pty.start()) << "socat did not give a port pair";
    ws.ports.setScanDevices(false);
    ws.ports.place(3, pty.workstationEnd());
    ws.MSComm1.CommPort = 3;
    ASSERT_EQ(ws.MSComm1.SetPortOpen(true), 0) << ws.MSComm1.ErrorText().toStdString();

    QSerialPort instrument;
    instrument.setPortName(pty.instrumentEnd());
    ASSERT_TRUE(instrument.open(QIODevice::ReadWrite));
    ws.rt.Glag_depth_now = 1234.5;
    instrument.write("*KW1,03/05/2024,14:00:00,1500\r\n");
    instrument.flush();

    ASSERT_TRUE(intakeUntil([&] { return field(0) == "KW1"; }));

    QByteArray back;
    QElapsedTimer limit;
    limit.start();
    while (!back.endsWith('\r') && limit.elapsed() < 5000)
        if (instrument.waitForReadyRead(100)) back += instrument.readAll();
    // One line: no keep-alive byte on the serial link.
    EXPECT_EQ(back, QByteArray("LAGDEPTH 1234.5 150\r"));
    // The terminal shows the received packet and the line sent, with CR LF.
    EXPECT_TRUE(ws.more_data.text_window.text().endsWith("LAGDEPTH 1234.5 150\r\r\n"));

    // A key typed in the terminal goes out as it stands and is not echoed.
    const QString before = ws.more_data.text_window.text();
    acq::text_window_KeyPress(ws, QChar('Q'));
    back.clear();
    limit.restart();
    while (back.isEmpty() && limit.elapsed() < 5000)
        if (instrument.waitForReadyRead(100)) back += instrument.readAll();
    EXPECT_EQ(back, QByteArray("Q"));
    EXPECT_EQ(ws.more_data.text_window.text(), before);
    ws.MSComm1.SetPortOpen(false);
}

} // namespace
