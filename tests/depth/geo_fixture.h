#pragma once
// A job of plain records for the geolograph commands, written with SQLite
// alone, the shared set opened as the program opens it, and the chart's row
// tables pointing at chosen records, as a draw would leave them.

#include "depth/geo_edit.h"
#include "raw_db.h"
#include "store/lifecycle.h"
#include "test_station.h"

#include <gtest/gtest.h>
#include <vector>

namespace geotest {

// Canvas rows the tests choose records at.
constexpr int kLevelRow = 2000;
constexpr int kStartRow = 3000;
constexpr int kEndRow = 4000;

// One record: its depth (negative for a tick), and a stop when asked.
struct Rec {
    double depth;
    bool stop = false;
};

struct GeoJob : testkit::Station {
    GeoJob() : testkit::Station("GEO.db") { ws.chart.Gchart_busy = false; }

    // Records with ID and PACKET_NUM 1, 2, 3 ..., six seconds apart from
    // 06:00, DEPTH_RAW as DEPTH, FT_HR 30.
    void write(const std::vector<Rec>& recs) {
        testkit::RawDb raw(job);
        raw.exec("BEGIN");
        int n = 0;
        for (const Rec& r : recs) {
            ++n;
            raw.exec(QString("INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, DT, DEPTH, DEPTH_RAW, "
                             "BIT_DEPTH, MIN_FT, FT_HR, CGTESTNUM, ERR_TXT) VALUES (%1, %1, "
                             "datetime('2026-11-01 06:00:00', '+%2 seconds'), %3, %3, %3, 2, "
                             "30, %4, '0')")
                         .arg(n)
                         .arg(6 * n)
                         .arg(r.depth, 0, 'g', 12)
                         .arg(r.stop ? -1 : 1));
        }
        raw.exec("COMMIT");
        open();
    }
    // Depths `from`, `from` + 1 ... each held for `each` records.
    static std::vector<Rec> Feet(int from, int feet, int each) {
        std::vector<Rec> out;
        for (int f = 0; f < feet; ++f)
            for (int i = 0; i < each; ++i) out.push_back({double(from + f)});
        return out;
    }
    void open() {
        QString path;
        bool verify = false;
        store::OpenSharedDb(ws, path, verify);
    }

    // The level line of the geolograph box at the record with this ID.
    void level(int id) {
        ws.chart.RowRecordId[kLevelRow] = id;
        ws.fm_Gas_Chart.ln_selecter.setVisible(true);
        ws.chart.ln_selecter_Y1 = ws.chart.ln_selecter_Y2 = kLevelRow;
    }
    // A stretch chosen by two double clicks, from record a to record b.
    void select(int a, int b) {
        ws.chart.RowRecordId[kStartRow] = a;
        ws.chart.RowRecordId[kEndRow] = b;
        ws.chart.SelectStartX = ws.chart.SelectEndX = 7000;
        ws.chart.SelectStartY = kStartRow;
        ws.chart.SelectEndY = kEndRow;
    }

    // A column of every record in packet order, as SQLite gives it.
    QString column(const char* name) {
        return testkit::RawDb(job).value(
            QString("SELECT group_concat(v, ' ') FROM (SELECT quote(%1) AS v FROM OMBRI_DB_010 "
                    "ORDER BY PACKET_NUM)")
                .arg(name));
    }
    // Every column of every row: two equal dumps are two equal tables.
    QString dump() {
        return testkit::RawDb(job).value(
            "SELECT group_concat(r, char(10)) FROM (SELECT quote(ID)||quote(PACKET_NUM)||"
            "quote(DT)||quote(DEPTH)||quote(DEPTH_RAW)||quote(BIT_DEPTH)||quote(MIN_FT)||"
            "quote(FT_HR)||quote(CGTESTNUM)||quote(ERR_TXT)||quote(DATE_TXT)||"
            "quote(TOTAL_STROKES) AS r FROM OMBRI_DB_010 ORDER BY PACKET_NUM)");
    }

    // A box command with an index, at the level line on record `id`.
    void click(void (*command)(Workstation&, int), int index, int id) {
        level(id);
        command(ws, index);
    }
    // A renumbering from record `from`; startAt: the number typed in
    // txt_renum_start with ck_renum_st_at ticked.
    void renumber(int direction, int from, const char* startAt) {
        depth::op_renum_Click(ws, direction);
        ws.fm_Gas_Chart.ck_renum_st_at.setChecked(startAt != nullptr);
        if (startAt) ws.fm_Gas_Chart.txt_renum_start.setText(startAt);
        level(from);
        depth::cmd_renum_geo_Click(ws);
    }
};

} // namespace geotest
