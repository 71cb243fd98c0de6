// A whole-file pass on a long job while the instrument simulator keeps
// sending: the pass lets the event loop run, the intake tick parses inside
// it, and the record writer stores every packet on its own connection while
// the pass works in batches.
#include "job_fixture.h"

#include "simulator.h"

#include <QElapsedTimer>
#include <set>

using depthtest::JobTest;
using depthtest::RowAt;
using testkit::FreePort;
using testkit::Pump;

namespace {

constexpr long kFirstSimPacket = 500000;

} // namespace

class LiveDuringPass : public JobTest {
  protected:
    testkit::Simulator sim{folder.file("sim.log")};

    void TearDown() override {
        ws.Winsock_ombri.Close();
        sim.stop();
    }

    // Packet numbers stored from the simulator.
    std::set<long> stored() const {
        std::set<long> out;
        for (const auto& v : column("PACKET_NUM"))
            if (v.toDouble() >= kFirstSimPacket) out.insert(static_cast<long>(v.toDouble()));
        return out;
    }
};

TEST_F(LiveDuringPass, EveryPacketSentDuringAWholeFilePassIsStored) {
    // 100000 records, 69 days of drilling from 4500 ft, pumps at 100.
    std::vector<depthtest::Row> rows;
    rows.reserve(100000);
    for (int i = 0; i < 100000; ++i)
        rows.push_back(RowAt(4500 + i * 0.05).count(10.0 * (i + 1)).rate(0.5));
    bulk(rows);

    const quint16 port = FreePort();
    ASSERT_TRUE(sim.start({"--tcp", QString::number(port), "--interval", "0.3", "--first-packet",
                           QString::number(kFirstSimPacket), "--start", "2027-01-10 00:00:00"}))
        << "the simulator never said it was ready";

    ws.Winsock_ombri.RemoteHost = "127.0.0.1";
    ws.Winsock_ombri.RemotePort = port;
    ws.Winsock_ombri.Connect();
    ASSERT_TRUE(testkit::PumpUntil(10000, [&] { return ws.Winsock_ombri.State() == 7; }));
    ws.timer("tmrDataArrival")->start();

    // Packets are arriving and being stored before the pass.
    QElapsedTimer limit;
    limit.start();
    while (stored().size() < 3 && limit.elapsed() < 15000) Pump(100);
    ASSERT_GE(stored().size(), 3u);

    byStrokes();
    ws.fm_setup.ck_Fix_ROP.setValue(1);
    const size_t before = stored().size();
    QElapsedTimer pass;
    pass.start();
    depth::cmd_recalc_lag_Click(ws, 0);
    const qint64 passMs = pass.elapsed();
    // Nothing but the pass's own yields ran the event loop since `before`.
    EXPECT_GT(stored().size(), before)
        << "no packet was stored during a pass of " << passMs << " ms";
    EXPECT_FALSE(ws.db.Gdb_error) << folder.read("ERR_LOG.TXT").toStdString();
    // The pass did its work: the newest bulk record is lagged.
    EXPECT_FALSE(column("LAG_GU")[99999].isNull());

    // Every packet the instrument had sent by a second after the pass is
    // stored once the intake has caught up.
    Pump(1000);
    const std::set<long> out = sim.sent();
    ASSERT_GE(out.size(), 5u);
    auto missing = [&] {
        const std::set<long> in = stored();
        std::vector<long> m;
        for (long p : out)
            if (!in.count(p)) m.push_back(p);
        return m;
    };
    limit.restart();
    while (!missing().empty() && limit.elapsed() < 10000) Pump(200);
    for (long p : missing()) ADD_FAILURE() << "packet " << p << " was sent but not stored";
}
