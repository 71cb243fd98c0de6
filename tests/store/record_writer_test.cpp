// The record writer on a real job file: what goes into each column, the
// checks that refuse a packet, the running pump figures, and the handler.
#include "station.h"

#include <gtest/gtest.h>

using store::SaveKWData;
using storetest::RawDb;
using storetest::Station;

TEST(RecordWriter, APacketBecomesOneRowColumnByColumn) {
    Station s;
    auto& ws = s.ws;
    ws.wits.Gwits_alive = 30;
    for (int slot = 0; slot < wits::kWitsSlots; ++slot) ws.wits.Gwits_values[slot] = 1000 + slot;
    ws.wits.Gwits_values[8] = 40;
    ws.wits.Gwits_values[9] = 30.5;
    ws.wits.Gwits_values[10] = 25;
    s.ws.db.RecordCount = 7;
    s.packet(12);
    ws.packet.Gombri_data_array[acq::ERRTXT] = "3 ";
    EXPECT_TRUE(SaveKWData(s.ws));

    ASSERT_EQ(s.rows(), 1);
    RawDb raw(s.job);
    // Text columns as received, the date in ISO form, numbers by Val.
    const QString row = raw.value(
        "SELECT ID||'|'||PACKET_NUM||'|'||SERIAL_NUM||'|'||DATE_TXT||'|'||TIME_TXT||'|'||DT||'|'||"
        "DEPTH||'|'||DEPTH_RAW||'|'||GAS_UNITS||'|'||O2||'|'||CO2||'|'||ATTEN||'|'||MIN_FT||'|'||"
        "FT_HR||'|'||LPH||'|'||LOWGUV||'|'||HIGHGUV||'|'||CGTESTNUM||'|'||CGV||'|'||H2SV||'|'||"
        "H2S||'|'||EXT_AMPS||'|'||C1||'|'||C2||'|'||C3||'|'||IC4||'|'||NC4||'|'||IC5||'|'||NC5 "
        "FROM OMBRI_DB_010");
    EXPECT_EQ(row, "2|12|KW1042|11/01/2026|06:01:12|2026-11-01 06:01:12|3.5|3.5|4.5|5.5|6.5|7.5|"
                   "9.5|10.5|11.5|14.5|15.5|16.5|17.5|18.5|19.5|25.5|29.5|30.5|31.5|32.5|33.5|"
                   "38.5|39.5");
    // WITS: bit depth, the pump rate total truncated, the stroke total, the
    // survey, gamma and the custom channels.
    EXPECT_EQ(raw.value("SELECT BIT_DEPTH||' '||TOTAL_SPM||' '||TOTAL_STROKES||' '||INCLINATION||' "
                        "'||AZIMUTH||' '||GAMMA_LAG||' '||GAMMA||' '||KW7001||' '||KW7003||' '||"
                        "KW7005||' '||KW7007 FROM OMBRI_DB_010"),
              "1000.0 95.0 9.0 1015.0 1016.0 1020.0 1021.0 1022.0 1023.0 1024.0 1025.0");
    EXPECT_EQ(s.column(12, "ERR_TXT"), "3 ");
    EXPECT_EQ(s.ws.db.RecordCount, 8);
    EXPECT_TRUE(s.messages().isEmpty());

    // Gas taken while the line lag runs is marked.
    ws.depth.Gline_lag_ok = false;
    s.packet(13);
    ws.packet.Gombri_data_array[acq::ERRTXT] = "12";
    SaveKWData(s.ws);
    EXPECT_EQ(s.column(13, "ERR_TXT"), "12 *");
}

TEST(RecordWriter, TheDiagnosticPairsAlternateAndOnlyWrittenRowsFlipThem) {
    Station s;
    s.save(1);
    // Same time again: refused before any column is set.
    s.packet(2);
    s.ws.packet.Gombri_data_array[acq::OMBRITIME] = "06:00:06";
    SaveKWData(s.ws);
    s.save(2);
    s.save(3);
    ASSERT_EQ(s.rows(), 3);
    // The first quantity of each pair, then the second plus 10000.
    auto pairs = [&](int n) {
        return s.column(n, "TEMP||' '||SAMPLEVAC||' '||VOLTS||' '||CHROM_VAC");
    };
    EXPECT_EQ(pairs(1), "8.5 12.5 13.5 27.5");
    EXPECT_EQ(pairs(2), "10026.5 10034.5 10023.5 10035.5");
    EXPECT_EQ(pairs(3), "8.5 12.5 13.5 27.5");
}

TEST(RecordWriter, TheChecksBeforeTheRowRefuseThePacketWithTheirMessages) {
    Station s;
    const auto& last = s.ws.db.LastRecordTime;
    auto& f = s.ws.packet.Gombri_data_array;

    s.packet(1);
    f[acq::DATE] = "13/45/2026";
    SaveKWData(s.ws);
    EXPECT_EQ(s.lastMessage(), "Invalid time or date from Ombri 13/45/2026 06:00:06");

    s.save(1);
    s.packet(2);
    f[acq::OMBRITIME] = "06:00:06";
    SaveKWData(s.ws);
    EXPECT_EQ(s.lastMessage(), "Duplacate Time/Date Blocked: 11/01/2026 06:00:06");

    // A time of four characters converts, moves the last time, and is still
    // refused; the same text next is a duplicate, a proper one is stored.
    s.packet(4);
    f[acq::OMBRITIME] = "7:00";
    SaveKWData(s.ws);
    EXPECT_EQ(s.lastMessage(), R"("Incoming Data Time err " & Gombri_data_array(OMBRITIME) & " ")");
    EXPECT_EQ(last, QDateTime(QDate(2026, 11, 1), QTime(7, 0)));
    SaveKWData(s.ws);
    EXPECT_EQ(s.lastMessage(), "Duplacate Time/Date Blocked: 11/01/2026 07:00:00");
    f[acq::OMBRITIME] = "07:00:06";
    SaveKWData(s.ws);
    EXPECT_EQ(s.rows(), 2);

    // A serial number of twenty characters is kept, one of 21 refused, and
    // the time moves all the same.
    s.packet(1000);
    f[acq::SERIALNUM] = QString(20, 'S');
    SaveKWData(s.ws);
    s.packet(1001);
    f[acq::SERIALNUM] = QString(21, 'S');
    SaveKWData(s.ws);
    EXPECT_EQ(s.rows(), 3);
    EXPECT_EQ(s.lastMessage(),
              R"("Incoming data serial number data err " & Gombri_data_array(SERIALNUM) & " ")");
    EXPECT_EQ(last, QDateTime(QDate(2026, 11, 1), QTime(7, 40, 6)));
}

TEST(RecordWriter, PumpRatesAndTheStrokeTotalFollowTheirRules) {
    Station s;
    auto& ws = s.ws;
    int n = 0;
    auto row = [&] {
        s.save(++n);
        return s.column(n, "TOTAL_SPM||' '||TOTAL_STROKES");
    };
    // 95 strokes a minute: 9.5 a row, the half lost each time.
    ws.wits.Gwits_values[8] = 95;
    EXPECT_EQ(row(), "95.0 9.0");
    // 900 and -1 are out of range: the last rate stays.
    ws.wits.Gwits_values[8] = 900;
    EXPECT_EQ(row(), "95.0 18.0");
    ws.wits.Gwits_values[8] = 0;
    ws.wits.Gwits_values[10] = -1;
    EXPECT_EQ(row(), "95.0 27.0");
    ws.wits.Gwits_values[10] = 0;
    ws.wits.Gwits_values[9] = 899.9;
    EXPECT_EQ(row(), "899.0 116.0");
    // No pumps: the total stands still, manual pumps or not.
    ws.wits.Gwits_values[9] = 0;
    ws.wits.Gpumps_manual = true;
    EXPECT_EQ(row(), "0.0 116.0");
}

TEST(RecordWriter, ARepeatedPacketNumberIsRolledBackAndRaisesTheErrorFlag) {
    Station s;
    auto& ws = s.ws;
    s.save(1);
    ws.wits.Gwits_values[8] = 100;
    s.packet(2);
    ws.packet.Gombri_data_array[acq::PACKETNUM] = "1";
    ws.packet.Gombri_data_array[acq::ERRTXT] = "5 ";
    // A refused row says so, and its alarm word is not passed on.
    EXPECT_FALSE(SaveKWData(s.ws));
    EXPECT_EQ(s.lastMessage(), "DB Write Err: Duplacate packet numbers found in the data base.");
    EXPECT_TRUE(ws.db.Gdb_error);
    EXPECT_EQ(s.rows(), 1);
    EXPECT_EQ(s.ws.db.RecordCount, 1);

    // The next packet goes in as usual.
    ws.db.Gdb_error = false;
    s.save(3);
    EXPECT_EQ(s.column(3, "ID"), "4");
    EXPECT_FALSE(ws.db.Gdb_error);
}

TEST(RecordWriter, AFailedColumnNamesItsStepAndLeavesNoHalfRow) {
    Station s;
    s.packet(1);
    s.ws.packet.Gombri_data_array[acq::PACKETNUM] = " ";
    SaveKWData(s.ws);
    // PACKET_NUM is the 26th column set, after BeginTrans and AddNew.
    EXPECT_EQ(s.lastMessage(), "DB Write Err: Data type conversion error 3421  Err point: 28");
    EXPECT_TRUE(s.ws.db.Gdb_error);
    EXPECT_EQ(s.rows(), 0);
    // The flip at CHROM_VAC had happened before the failure.
    EXPECT_FALSE(s.ws.db.WritePrimaryDiag);

    // A missing file is not created by the writer.
    s.ws.fm_Gas_Chart.txt_db_path.setText(s.folder.file("DB_CUE/GONE.DB"));
    s.save(2);
    EXPECT_TRUE(s.lastMessage().startsWith("DB Write Err: Could not find or open the file"));
    EXPECT_FALSE(s.folder.exists("DB_CUE/GONE.DB"));
}
