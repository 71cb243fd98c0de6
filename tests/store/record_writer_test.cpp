// The record writer on a real job file: what goes into each column and the
// checks that refuse a packet.
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
    EXPECT_EQ(s.ws.packet.UnitSerial, "KW1042");
    EXPECT_TRUE(s.messages().isEmpty());

    // A pump total out of range (900, -1) keeps the last rate; no pumps leave
    // the stroke total standing, manual pumps or not.
    auto rates = [&](int n, double pump) {
        ws.wits.Gwits_values[8] = pump;
        s.save(n);
        return s.column(n, "TOTAL_SPM||' '||TOTAL_STROKES");
    };
    EXPECT_EQ(rates(13, 844.5), "95.0 18.0");
    EXPECT_EQ(rates(14, -56.5), "95.0 27.0");
    ws.wits.Gwits_values[9] = ws.wits.Gwits_values[10] = 0;
    ws.wits.Gpumps_manual = true;
    EXPECT_EQ(rates(15, 0), "0.0 27.0");
}

TEST(RecordWriter, RefusedPacketsGiveTheirMessagesAndDoNotFlipTheDiagnosticPairs) {
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
    // refused; a proper one is stored.
    s.packet(4);
    f[acq::OMBRITIME] = "7:00";
    SaveKWData(s.ws);
    EXPECT_EQ(s.lastMessage(), R"("Incoming Data Time err " & Gombri_data_array(OMBRITIME) & " ")");
    EXPECT_EQ(last, QDateTime(QDate(2026, 11, 1), QTime(7, 0)));
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

    // Rows written take the first quantity of each pair and the second plus
    // 10000 by turns; the refused packets between them flip nothing.
    auto pairs = [&](int n) {
        return s.column(n, "TEMP||' '||SAMPLEVAC||' '||VOLTS||' '||CHROM_VAC");
    };
    EXPECT_EQ(pairs(1), "8.5 12.5 13.5 27.5");
    EXPECT_EQ(pairs(4), "10026.5 10034.5 10023.5 10035.5");
    EXPECT_EQ(pairs(1000), "8.5 12.5 13.5 27.5");
}

TEST(RecordWriter, AFailedRowIsRolledBackWithItsMessageAndTheNextGoesInAsUsual) {
    Station s;
    auto& ws = s.ws;
    s.save(1);
    s.packet(2);
    ws.packet.Gombri_data_array[acq::PACKETNUM] = "1";
    EXPECT_FALSE(SaveKWData(s.ws));
    EXPECT_EQ(s.lastMessage(), "DB Write Err: Duplacate packet numbers found in the data base.");
    EXPECT_TRUE(ws.db.Gdb_error);
    EXPECT_EQ(s.ws.db.RecordCount, 1);

    ws.db.Gdb_error = false;
    s.packet(3);
    ws.packet.Gombri_data_array[acq::PACKETNUM] = " ";
    SaveKWData(s.ws);
    // PACKET_NUM is the 26th column set, after BeginTrans and AddNew.
    EXPECT_EQ(s.lastMessage(), "DB Write Err: Data type conversion error 3421  Err point: 28");
    EXPECT_TRUE(s.ws.db.Gdb_error);
    EXPECT_EQ(s.rows(), 1);

    // A failed row has flipped the pair all the same, as each got past
    // CHROM_VAC: the third row takes the second of the pair.
    ws.db.Gdb_error = false;
    s.save(5);
    EXPECT_EQ(s.column(5, "ID||' '||TEMP"), "5 10026.5");
    EXPECT_FALSE(ws.db.Gdb_error);

    // A missing file is not created by the writer.
    s.ws.fm_Gas_Chart.txt_db_path.setText(s.folder.file("DB_CUE/GONE.DB"));
    s.save(6);
    EXPECT_TRUE(s.lastMessage().startsWith("DB Write Err: Could not find or open the file"));
    EXPECT_FALSE(s.folder.exists("DB_CUE/GONE.DB"));
}
