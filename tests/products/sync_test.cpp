// The bulk download from the instrument simulator over a pseudo-terminal.
#include "acquisition/supervision.h"
#include "acquisition/sync.h"
#include "products_fixture.h"
#include "pty_pair.h"
#include "simulator.h"

#include <QElapsedTimer>
#include <QTimer>
#include <set>

using productstest::ProductsTest;

class Sync : public ProductsTest {
  protected:
    std::unique_ptr<testkit::Simulator> sim;
    std::set<QString> captions;
    // The counts the information box showed during the transfer.
    std::set<QString> counts;
    QTimer probe;

    // The workstation's port 3 on `tty`, open and read, a Yes to the question.
    bool open(const QString& tty) {
        ws.ports.setScanDevices(false);
        ws.ports.place(3, tty);
        ws.MSComm1.CommPort = 3;
        if (ws.MSComm1.SetPortOpen(true) != 0) return false;
        ws.timer("tmrDataArrival")->start();
        ws.timer("tmr_delay")->start();
        dialogs.answers = {platform::Answer::Yes};
        return true;
    }

    // The simulator with `history` samples in its data file on the port.
    bool connect(int history, double pause) {
        sim = std::make_unique<testkit::Simulator>(folder.file("sim.log"));
        const QString tty = folder.file("kw");
        if (!sim->start({"--pty", tty, "--interval", "600", "--history", QString::number(history),
                         "--first-packet", "5001", "--start", "2026-11-01 06:00:00",
                         "--transfer-pause", QString::number(pause)}) ||
            !open(tty))
            return false;
        // What the link button says each second, as the supervision has it.
        QObject::connect(&probe, &QTimer::timeout, [this] {
            acq::SuperviseLink(ws);
            captions.insert(ws.fm_Gas_Chart.cmd_comm1.caption());
            const QStringList lines = ws.fm_help.txt_help.text().split("\r\n");
            for (const QString& l : lines)
                if (l.endsWith(" records transfered")) counts.insert(l);
        });
        // The instrument greets the open port with a packet, which the
        // parser stores before the download begins.
        if (!testkit::PumpUntil(5000, [this] { return rows() == 1; })) return false;
        ws.link.Gdetector_found = true;
        ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Green);
        probe.start(1000);
        return true;
    }
    ~Sync() override { ws.MSComm1.SetPortOpen(false); }
};

TEST_F(Sync, APauseUnderFiveSecondsKeepsTheTransferGoing) {
    ASSERT_TRUE(connect(1000, 3));
    acq::Sync_with_Kettlewick(ws);
    ASSERT_EQ(dialogs.boxes.size(), 1u);
    EXPECT_EQ(dialogs.boxes[0].title, "SYNC WITH KETTLEWICK DATA?");
    EXPECT_EQ(sim->count("TRANSFER PAUSE 500"), 1);
    // 1000 samples of the past and the greeting packet.
    EXPECT_EQ(rows(), 1001) << "the pause did not end the transfer";
    EXPECT_TRUE(captions.count("Kettlewick In Transfer"));
    EXPECT_GE(counts.size(), 2u) << "the count goes up chunk by chunk";
    EXPECT_TRUE(counts.count("25 records transfered"));
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains("The files have been imported"));
    EXPECT_EQ(logged("Download complete"), 1);
    EXPECT_FALSE(ws.db.Gdb_busy);
    EXPECT_FALSE(ws.packet.Gtransfer_active);
}

TEST_F(Sync, SilenceOfFiveSecondsEndsTheTransfer) {
    ASSERT_TRUE(connect(1000, 7));
    acq::Sync_with_Kettlewick(ws);
    EXPECT_EQ(rows(), 501) << "the greeting and what came before the silence";
    EXPECT_EQ(logged("Download complete"), 1);
}

TEST_F(Sync, NoReplyEndsAfterTenSecondsWithNothingImported) {
    testkit::PtyPair pair; // nobody at the far end
    ASSERT_TRUE(pair.start());
    ASSERT_TRUE(open(pair.workstationEnd()));
    ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Green);
    QElapsedTimer took;
    took.start();
    acq::Sync_with_Kettlewick(ws);
    EXPECT_GE(took.elapsed(), 11000) << "two seconds of wake-up and ten of waiting";
    EXPECT_EQ(logged("Download complete"), 1);
    EXPECT_EQ(rows(), 0);
    EXPECT_FALSE(ws.fm_help.txt_help.text().contains("The files have been imported"));
    EXPECT_FALSE(ws.db.Gdb_busy);
    EXPECT_FALSE(ws.packet.Gtransfer_active);
    ws.MSComm1.SetPortOpen(false); // before the pair goes
}

TEST_F(ProductsTest, TheDownloadRefusesWithoutASerialPort) {
    struct Case {
        const char* what;
        bool tcp, green;
    } cases[] = {{"TCP link only", true, true}, {"serial not connected", false, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ws.link.Guse_tcp = c.tcp;
        ws.fm_Gas_Chart.cmd_comm1.setBackColor(c.green ? forms::color::Green : forms::color::Red);
        const int before = logged("The Kettlewick is not connected to the computer");
        acq::cmd_sync_kettlewick_Click(ws);
        EXPECT_TRUE(dialogs.boxes.empty()) << "no question asked";
        EXPECT_EQ(logged("The Kettlewick is not connected to the computer"), before + 1);
        EXPECT_FALSE(folder.exists("KW_TEMP.TXT"));
    }
    // A busy job: nothing at all.
    ws.db.Gdb_busy = true;
    acq::cmd_sync_kettlewick_Click(ws);
    EXPECT_EQ(logged("through the serial port."), 2);
    ws.db.Gdb_busy = false;
}
