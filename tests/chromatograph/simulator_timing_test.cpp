// A peak time taught from the panel, over a real serial line to the simulator.
#include "chro_fixture.h"
#include "pty_pair.h"
#include "simulator.h"

namespace chrotest {
namespace {

using namespace chromatograph;

TEST_F(ChroTest, ADoubleClickOnC3TeachesTheSimulatorOverTheSerialLine) {
    testkit::PtyPair pty;
    ASSERT_TRUE(pty.start()) << "socat did not give a port pair";
    ws.ports.setScanDevices(false);
    ws.ports.place(3, pty.workstationEnd());
    ws.MSComm1.CommPort = 3;
    ASSERT_EQ(ws.MSComm1.SetPortOpen(true), 0) << ws.MSComm1.ErrorText().toStdString();
    // Slow packets: the line carries little besides the command.
    testkit::Simulator sim(st.folder.file("sim.log"));
    ASSERT_TRUE(sim.start({"--serial", pty.farEnd(), "--interval", "60"}));

    loadWhole();
    // C3 chosen, the pointer over sample 15 (90 s), double click.
    cmd_set_Click(ws, 2);
    pb_chro_MouseMove(ws, pointerX(15), 3000, false);
    pb_chro_DblClick(ws);

    ASSERT_TRUE(testkit::PumpUntil(5000, [&] { return sim.count("WRITEETIME") > 0; }));
    EXPECT_EQ(sim.lines("WRITEETIME"), QStringList{"WRITEETIME C3 96"});
    EXPECT_EQ(st.lastMessage(), "C3 Time Has Been Set To 96 Seconds");
    sim.stop();
    ws.MSComm1.SetPortOpen(false);
}

// The run goes to the print box (whose page is print_picture_box_test's)
// drawn at a printer's density.
TEST_F(ChroTest, PrintingARunSendsItDrawnToThePrintBox) {
    loadWhole();
    QImage page;
    ws.services.print_picture = [&](const QImage& p) {
        page = p;
        return station::PrintResult{};
    };
    cmd_print_chro_Click(ws);
    ASSERT_FALSE(page.isNull());
    int ink = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) ink += QColor(page.pixel(x, y)).lightness() < 128;
    // A drawn run, not a blank page and not a black one.
    EXPECT_GT(ink, page.width() * page.height() / 200);
    EXPECT_LT(ink, page.width() * page.height() / 2);
}

} // namespace
} // namespace chrotest
