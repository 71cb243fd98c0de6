// Finding the recorder on the serial ports, and keeping it.
#include "wits_fixture.h"

#include "acquisition/supervision.h"
#include "simulator.h"

#include <QElapsedTimer>

using forms::color::Green;
using forms::color::Red;
using witstest::WitsTest;

namespace {

class Probe : public WitsTest {
  protected:
    Probe() {
        // The search waits on these two, as in the program.
        ws.timer("tmr_Serial_WITS")->start();
        ws.timer("tmr_WITSDataArrival")->start();
    }
    // A recorder on port n that answers whatever it hears with a frame, or
    // stays silent.
    void recorderOn(int n, bool answers) {
        pairOn(n);
        if (!answers) return;
        QObject::connect(&edr, &QSerialPort::readyRead, &edr, [this] {
            heard += edr.readAll();
            edr.write(
                ("\r\n" + wits::Frame({{108, "4999.5"}, {110, "5000.5"}, {123, "60"}})).toLatin1());
        });
    }
    auto& button() { return ws.fm_WITS.cmd_Search_For_WITS; }
    QByteArray heard;
};

TEST_F(Probe, TheSearchTakesTheAnsweringPortAndUntickingClosesIt) {
    recorderOn(6, true);
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    wits::ck_Use_Local_WITS_Click(ws);
    EXPECT_EQ(button().backColor(), Green);
    EXPECT_EQ(button().caption(), "WITS CONNECTED ON SERIAL PORT: 6");
    EXPECT_EQ(ws.MSComm2.Settings, "9600,n,8,1");
    EXPECT_TRUE(ws.fm_WITS.txt_Raw_WITS_Out.enabled());
    // The probe: a blank line, then a frame with one unset item.
    EXPECT_TRUE(heard.startsWith("\r\n&&\r\n0111-9999\r\n!!\r\n")) << heard.constData();

    // The stream then flows through the arrival tick into the slots.
    edr.write(("\r\n" + wits::Frame({{110, "5001.5"}})).toLatin1());
    ASSERT_TRUE(testkit::PumpUntil(3000, [&] { return slot(1) == 5001.5; }));
    EXPECT_TRUE(ws.fm_WITS.txt_Raw_WITS_In.text().contains("01105001.5"));

    // Unticked: the port closes, the button is back to its face, the
    // controls go grey, and the count runs out within a second.
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(false);
    wits::ck_Use_Local_WITS_Click(ws);
    EXPECT_FALSE(ws.MSComm2.PortOpen());
    EXPECT_EQ(button().backColor(), forms::color::Button);
    EXPECT_EQ(button().caption(), "SEARCH FOR AND OPEN WITS PORT");
    EXPECT_FALSE(ws.fm_WITS.txt_Raw_WITS_Out.enabled());
    acq::SuperviseWits(ws);
    EXPECT_EQ(ws.wits.Gwits_alive, 0);
    // Frames still arriving on the closed local port go nowhere.
    const double held = slot(1);
    edr.write(("\r\n" + wits::Frame({{110, "9999.5"}})).toLatin1());
    testkit::Pump(500);
    EXPECT_DOUBLE_EQ(slot(1), held);
}

TEST_F(Probe, ASilentPortIsGivenThreeSecondsAPassAndTheSearchGivesUp) {
    recorderOn(2, false);
    // With the box clear every port is skipped, unasked.
    wits::SerialFindWITS(ws);
    EXPECT_EQ(button().caption(), "UNABLE TO FIND WITS PORT");
    EXPECT_FALSE(edr.waitForReadyRead(100));

    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    QElapsedTimer took;
    took.start();
    wits::SerialFindWITS(ws);
    // Three passes, three seconds each on the one port that opens.
    EXPECT_GE(took.elapsed(), 8000);
    EXPECT_EQ(ws.wits.Gwits_alive, 1);
    EXPECT_EQ(button().backColor(), Red);
    EXPECT_EQ(button().caption(), "UNABLE TO FIND WITS PORT");
    EXPECT_FALSE(ws.MSComm2.PortOpen());
    edr.waitForReadyRead(100);
    EXPECT_EQ(edr.readAll().count("0111-9999"), 3);
}

TEST_F(Probe, TheButtonFollowsTheHealthCount) {
    ws.timer("tmr_Serial_WITS")->stop();
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    ws.wits.WITS_port = 7;
    // The count before each tick and the words the button then shows.
    const std::pair<int, QString> steps[] = {{21, "WITS CONNECTED ON SERIAL PORT: 7"},
                                             {9, "WITS CONNECTED ON SERIAL PORT: 7"},
                                             {8, "WITS MAYBE ON SERIAL PORT: 7"},
                                             {2, "WITS USED TO BE ON SERIAL PORT: 7"},
                                             {20, "WITS USED TO BE ON SERIAL PORT: 7"}};
    for (const auto& [alive, caption] : steps) {
        ws.wits.Gwits_alive = alive;
        wits::tmr_Serial_WITS_Timer(ws);
        EXPECT_EQ(button().caption(), caption) << alive;
    }
    // With the box clear the button is left alone.
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(false);
    ws.wits.Gwits_alive = 21;
    wits::tmr_Serial_WITS_Timer(ws);
    EXPECT_EQ(button().backColor(), Red);
}

TEST_F(Probe, TheReconnectTickSearchesOnlyWhenAskedAndTheStreamIsDead) {
    recorderOn(5, true);
    struct Case {
        bool local;
        bool keep;
        int alive;
        bool searches;
    };
    const Case cases[] = {
        {true, false, 0, false},
        {false, true, 0, false},
        {true, true, 3, false},
        {true, true, 0, true},
    };
    for (const Case& c : cases) {
        ws.MSComm2.SetPortOpen(false);
        ws.fm_WITS.ck_Use_Local_WITS.setChecked(c.local);
        ws.fm_WITS.ck_KeepWITSConnected.setChecked(c.keep);
        ws.wits.Gwits_alive = c.alive;
        ws.more_data.wits_info.addItem("0110  Hole Depth  1");
        wits::tmr_Keep_WITS_Connected_Timer(ws);
        EXPECT_EQ(ws.MSComm2.PortOpen(), c.searches);
        // The list is cleared in any case.
        EXPECT_TRUE(ws.more_data.wits_info.items().isEmpty());
    }
}

} // namespace
