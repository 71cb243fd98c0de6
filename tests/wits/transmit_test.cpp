// The frame of gas results sent back to the recorder: what it holds, when it
// is made, and when the one-second tick lets it go.
#include "wits_fixture.h"

#include "acquisition/parser.h"
#include "simulator.h"
#include "workstation/packet_state.h"

using witstest::WitsTest;

namespace {

class Transmit : public WitsTest {
  protected:
    void setFields(std::initializer_list<std::pair<int, const char*>> f) {
        for (const auto& [i, v] : f) ws.packet.Gombri_data_array[i] = v;
    }
    // The workstation's MSComm2 open on port 4, the test holding the
    // recorder's end.
    void openPort() {
        pairOn(4);
        ws.MSComm2.CommPort = 4;
        ws.MSComm2.Settings = "9600,n,8,1";
        ASSERT_EQ(ws.MSComm2.SetPortOpen(true), 0);
    }
    // What reached the recorder's end within ms.
    QByteArray heard(int ms = 400) {
        QByteArray got;
        testkit::PumpUntil(ms, [&] {
            edr.waitForReadyRead(10);
            got += edr.readAll();
            return false;
        });
        return got;
    }
};

TEST_F(Transmit, TheFrameHoldsLagDepthAndTheGasFieldsAsSentWithCrLf) {
    using namespace acq;
    ws.depth.Glag_depth_now = 4987.25;
    setFields({{GASUNITS, "123.46"},
               {C1, "1000"},
               {C2, "200.5"},
               {C3, "30.04"},
               {IC4, "4"},
               {NC4, "5"},
               {IC5, "0.65"},
               {NC5, "-7"},
               {CO2, "0.1"},
               {O2, "20.9"},
               {H2S, " "}});
    wits::Send_Serial_WITS(ws);
    // Each item a line, CR LF after each.
    EXPECT_EQ(ws.wits.WITS_out_frame.split("\r\n").join('|'),
              "&&|01394987.3|0140123.5|12121000.0|1213200.5|121430.0|12154.0|12165.0|12170.7|"
              "1218-7.0|12220.1|122520.9|1826 |!!|");
    // Text that is no number goes out as it came; an empty field as nothing.
    setFields({{H2S, "n/a"}, {O2, ""}});
    wits::Send_Serial_WITS(ws);
    EXPECT_TRUE(ws.wits.WITS_out_frame.contains("\r\n1826n/a\r\n"));
    EXPECT_TRUE(ws.wits.WITS_out_frame.contains("\r\n1225\r\n"));
}

TEST_F(Transmit, APacketMakesAFrameOnlyWhileTheLocalStreamHasTakenOver) {
    // Whether it has taken over (box and health count) is the parser's test.
    ws.wits.Gwits_alive = 60;
    for (const bool local : {false, true}) {
        ws.fm_WITS.ck_Use_Local_WITS.setChecked(local);
        ws.wits.WITS_out_frame.clear();
        ws.packet.Gline_buffer = "*KW1,03/05/2024,14:07:09,5000,77.7,20.9,0.1\r\n";
        acq::Parse_Ombri_String(ws);
        EXPECT_EQ(ws.wits.WITS_out_frame.contains("\r\n014077.7\r\n"), local);
    }
}

TEST_F(Transmit, TheTickSendsTheNewestFrameOnlyWhileTheRecorderIsHeard) {
    openPort();
    wits::tmr_WITSDataArrival_Timer(ws);
    // Nothing waits: nothing goes.
    ws.wits.Gwits_alive = 60;
    wits::tmr_Send_WITS_Timer(ws);
    EXPECT_TRUE(heard(200).isEmpty());

    // Two packets inside one second: only the second frame leaves.
    ws.packet.Gombri_data_array[acq::GASUNITS] = "11";
    wits::Send_Serial_WITS(ws);
    ws.packet.Gombri_data_array[acq::GASUNITS] = "22";
    wits::Send_Serial_WITS(ws);
    wits::tmr_Send_WITS_Timer(ws);
    const QByteArray first = heard();
    EXPECT_TRUE(first.contains("014022.0\r\n"));
    EXPECT_EQ(first.count("&&\r\n"), 1);
    EXPECT_TRUE(ws.fm_WITS.txt_Raw_WITS_Out.text().endsWith(QString::fromLatin1(first)));

    // Health count at 0: the frame waits, and goes once the count rises.
    ws.wits.Gwits_alive = 0;
    ws.packet.Gombri_data_array[acq::GASUNITS] = "33";
    wits::Send_Serial_WITS(ws);
    wits::tmr_Send_WITS_Timer(ws);
    EXPECT_TRUE(heard(200).isEmpty());
    ws.wits.Gwits_alive = 1;
    wits::tmr_Send_WITS_Timer(ws);
    EXPECT_TRUE(heard().contains("014033.0\r\n"));

    // The double click's test string leaves on the next tick.
    wits::txt_Raw_WITS_Out_DblClick(ws);
    wits::tmr_Send_WITS_Timer(ws);
    EXPECT_EQ(heard(), "\r\nThis is a test string\r\n&&\r\n0111-9999\r\n!!\r\n");

    // A port gone away is closed and counted, and the ticks go on.
    pair.stop();
    edr.close();
    wits::Send_Serial_WITS(ws);
    for (int i = 0; i < 3; ++i) {
        testkit::Pump(100);
        wits::tmr_WITSDataArrival_Timer(ws);
        wits::tmr_Send_WITS_Timer(ws);
    }
    EXPECT_FALSE(ws.MSComm2.PortOpen());
    EXPECT_EQ(ws.wits.counts.portLosses, 1);
}

} // namespace
