// A peak time taught from the panel reaches the instrument over a real
// serial line: the simulator at the far end of a pseudo-terminal logs the
// command with the allowance the panel adds, and takes it as its new time.
#include "chro_fixture.h"
#include "pty_pair.h"
#include "simulator.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>

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

    write({{1, 40}, {2, 40}, {3, 10}, {4, 40}});
    select(5, 20);
    cmd_view_cg_Click(ws);
    // C3 chosen, the pointer over sample 15 (90 s), double click.
    cmd_set_Click(ws, 2);
    pb_chro_MouseMove(ws, 300 + 15.5 * 4100.0 / run().CgCount, 3000, false);
    pb_chro_DblClick(ws);

    ASSERT_TRUE(testkit::PumpUntil(5000, [&] { return sim.count("WRITEETIME") > 0; }));
    EXPECT_EQ(sim.lines("WRITEETIME"), QStringList{"WRITEETIME C3 96"});
    EXPECT_EQ(st.lastMessage(), "C3 Time Has Been Set To 96 Seconds");
    sim.stop();
    ws.MSComm1.SetPortOpen(false);
}

// With no printer on the machine the chromatogram goes onto one PDF page,
// drawn at a printer's density: the trace in ink, the rest white.
TEST_F(ChroTest, PrintedWithoutAPrinterTheRunLandsOnOnePdfPage) {
    write({{1, 40}, {2, 40}, {3, 10}, {4, 40}});
    select(5, 20);
    cmd_view_cg_Click(ws);
    const QString pdf = st.folder.file("run.pdf");
    st.dialogs.files.push_back(pdf);
    cmd_print_chro_Click(ws);
    QProcess info;
    info.start("pdfinfo", {pdf});
    info.waitForFinished(30000);
    EXPECT_TRUE(QString::fromUtf8(info.readAllStandardOutput())
                    .contains(QRegularExpression("Pages:\\s+1\\n")));
    QProcess render;
    render.start("pdftoppm", {"-r", "30", "-png", "-singlefile", pdf, st.folder.file("run")});
    render.waitForFinished(30000);
    const QImage page(st.folder.file("run.png"));
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
