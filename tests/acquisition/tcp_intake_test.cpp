// Real bytes over a real TCP connection on 127.0.0.1: the instrument end is a
// QTcpServer in the test, the workstation end is Winsock_ombri.
#include "acq_fixture.h"

#include "acquisition/parser.h"
#include "acquisition/timers.h"
#include "acquisition/viewer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>

using acqtest::AcqTest;

namespace {

class TcpIntake : public AcqTest {
  protected:
    QTcpServer server;
    QTcpSocket* instrument = nullptr;

    void SetUp() override {
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
        ws.Winsock_ombri.RemoteHost = "127.0.0.1";
        ws.Winsock_ombri.RemotePort = server.serverPort();
        ws.Winsock_ombri.Connect();
        QElapsedTimer limit;
        limit.start();
        while ((!instrument || ws.Winsock_ombri.State() != 7) && limit.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
            if (!instrument && server.hasPendingConnections())
                instrument = server.nextPendingConnection();
        }
        ASSERT_NE(instrument, nullptr);
        ASSERT_EQ(ws.Winsock_ombri.State(), 7);
    }
    void TearDown() override { ws.Winsock_ombri.Close(); }

    bool tickUntilParsed(const QString& serial) {
        return intakeUntil([&] { return ws.rt.Gombri_data_array[0] == serial; });
    }
    // What the workstation sent back, once at least n bytes came.
    QByteArray readBack(int n) {
        QByteArray got;
        QElapsedTimer limit;
        limit.start();
        while (got.size() < n && limit.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            instrument->waitForReadyRead(50);
            got += instrument->readAll();
        }
        // Anything more would arrive right behind: give it a moment.
        instrument->waitForReadyRead(200);
        return got + instrument->readAll();
    }
};

TEST_F(TcpIntake, APacketIsAnsweredWithTheLagDepthLineAndTheKeepAliveByte) {
    ws.rt.Glag_depth_now = 1234.5;
    ws.rt.Guptime_percent = 40;
    instrument->write("*KW77,03/05/2024,14:00:00,1500.5,22.5\r\n");
    instrument->flush();
    ASSERT_TRUE(tickUntilParsed("KW77"));
    EXPECT_EQ(ws.rt.Gombri_data_array[acq::DEPTH], "1500.5");
    // Hand-computed check value 150 (see the LagDepthLine test), then the
    // single byte 250.
    EXPECT_EQ(readBack(21), QByteArray("LAGDEPTH 1234.5 150\r") + char(250));
    EXPECT_EQ(ws.rt.Guptime_percent, 100);
    EXPECT_EQ(ws.rt.Gtcp_idle_count, 0);
    EXPECT_TRUE(ws.more_data.text_window.text().contains("LAGDEPTH 1234.5 150\r"));
}

TEST_F(TcpIntake, NoKeepAliveWhenTheBoxSaysSo) {
    ws.fm_setup.ck_Mainlog_NoKeepalive.setChecked(true);
    ws.rt.Glag_depth_now = 0;
    instrument->write("*KW78,03/05/2024,14:00:06,1500.6\r\n");
    instrument->flush();
    ASSERT_TRUE(tickUntilParsed("KW78"));
    EXPECT_EQ(readBack(17), QByteArray("LAGDEPTH 0.0 247\r"));
}

TEST_F(TcpIntake, APacketSplitOverTwoWritesIsTakenWhenItsCrComes) {
    ws.rt.Glag_depth_now = 7;
    instrument->write("*KW79,03/05/20");
    instrument->flush();
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        acq::tmrDataArrival_Timer(ws);
    }
    EXPECT_NE(ws.rt.Gombri_data_array[0], "KW79");
    instrument->write("24,14:00:12,1500.7\r\n");
    instrument->flush();
    ASSERT_TRUE(tickUntilParsed("KW79"));
    EXPECT_EQ(ws.rt.Gombri_data_array[acq::DATE], "03/05/2024");
    EXPECT_EQ(readBack(18), QByteArray("LAGDEPTH 7.0 254\r") + char(250));
}

TEST_F(TcpIntake, TcpConnectIsAnsweredWithStatusAndKeysGoOutAsTyped) {
    instrument->write("TCPCONNECT\r\n");
    instrument->flush();
    EXPECT_TRUE(
        intakeUntil([&] { return ws.more_data.text_window.text().contains("TCPCONNECT"); }));
    EXPECT_EQ(readBack(8), QByteArray("STATUS\r\n"));
    EXPECT_TRUE(ws.rt.Gline_buffer.isEmpty());

    acq::text_window_KeyPress(ws, QChar('?'));
    EXPECT_EQ(readBack(1), QByteArray("?"));
}

} // namespace
