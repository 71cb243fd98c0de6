// Place holders for missed packets.
#include "depth/geo_edit.h"
#include "station.h"
#include "store/range_delete.h"

#include <QTimer>

using storetest::RawDb;

namespace {

struct GapJob : storetest::Station {
    // The given packets, ID = packet, six seconds a packet from 06:00, a
    // stroke count of 1000 + 10 a packet at 95 strokes a minute.
    explicit GapJob(const std::vector<int>& packets) {
        storetest::InsertPackets(job, packets);
        RawDb(job).exec("UPDATE OMBRI_DB_010 SET SERIAL_NUM = 'KW7', "
                        "DT = datetime('2026-11-01 06:00:00', '+' || (6 * PACKET_NUM) || "
                        "' seconds'), TOTAL_SPM = 95, TOTAL_STROKES = 1000 + 10 * PACKET_NUM, "
                        "C1 = PACKET_NUM + 0.5, IC5 = NULL, ATTEN = 3");
    }
};

std::vector<int> Range(std::initializer_list<std::pair<int, int>> spans) {
    std::vector<int> out;
    for (auto [a, b] : spans)
        for (int p = a; p <= b; ++p) out.push_back(p);
    return out;
}

TEST(PlaceHolders, EveryGapIsFilledFromTheRowBeforeIt) {
    GapJob j(Range({{1, 5}, {8, 9}, {12, 12}, {15, 30}}));
    ASSERT_TRUE(store::Add_Missing_Packets(j.ws));
    EXPECT_EQ(RawDb(j.job).packets(), "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,"
                                      "23,24,25,26,27,28,29,30");
    const char* cols =
        "ID||'|'||SERIAL_NUM||'|'||DT||'|'||ifnull(DATE_TXT, '')||'|'||"
        "ifnull(TIME_TXT, '')||'|'||DEPTH||'|'||ifnull(DEPTH_RAW, '')||'|'||ERR_TXT||"
        "'|'||TOTAL_STROKES||'|'||C1||'|'||quote(IC5)||'|'||ATTEN";
    struct Case {
        int packet;
        QString row;
    };
    const Case cases[] = {
        // 95 strokes a minute: 9 strokes a packet over the source's count.
        {6, "6|KW7|2026-11-01 06:00:36|2026/11/01|06:00:36|50.0|50.0|0 *#|1059.0|5.5|NULL|3.0"},
        // A real row is left as it was.
        {8, "8|KW7|2026-11-01 06:00:48|||80.0||0|1080.0|8.5|NULL|3.0"},
    };
    for (const Case& c : cases) EXPECT_EQ(j.column(c.packet, cols), c.row) << "packet " << c.packet;
    EXPECT_FALSE(j.ws.db.Gdb_busy);

    // A second run finds nothing left to fill.
    const long long rows = j.rows();
    ASSERT_TRUE(store::Add_Missing_Packets(j.ws));
    EXPECT_EQ(j.rows(), rows);
}

TEST(PlaceHolders, TheNewestRecordsAndABusyDataBaseAreLeftAlone) {
    struct Case {
        const char* name;
        std::vector<int> packets;
        bool busy;
        QString after;
    };
    const Case cases[] = {
        // The pair of the fifth and fourth newest is the last looked at.
        {"gap before the four newest", {1, 2, 3, 5, 6, 7, 8}, false, "1,2,3,4,5,6,7,8"},
        {"gap among the four newest", {1, 2, 3, 4, 5, 7, 8, 9}, false, "1,2,3,4,5,7,8,9"},
        {"busy", {1, 2, 4, 5, 6, 7, 8, 9}, true, "1,2,4,5,6,7,8,9"},
    };
    for (const Case& c : cases) {
        GapJob j(c.packets);
        j.ws.db.Gdb_busy = c.busy;
        EXPECT_EQ(store::Add_Missing_Packets(j.ws), !c.busy) << c.name;
        EXPECT_EQ(j.ws.db.Gdb_busy, c.busy) << c.name;
        EXPECT_EQ(RawDb(j.job).packets(), c.after) << c.name;
    }
}

TEST(PlaceHolders, TheButtonFillsAndKeepsTheLoopRunning) {
    GapJob j(Range({{1, 10}, {5000, 5010}}));
    int ticks = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] { ++ticks; });
    beat.start(0);
    depth::cmd_Add_Missing_Packets_Click(j.ws);
    EXPECT_EQ(j.rows(), 5010);
    EXPECT_GT(ticks, 0) << "the event loop ran during the job";
}

} // namespace
