// From the instrument's bytes to rows another program reads: the start-up
// opens the job, the intake tick takes the packet lines (one of them split
// over two reads), the parser hands each to the writer, and the SQLite shell
// reads the rows back.
#include "acquisition/main_loop.h"
#include "acquisition/startup.h"
#include "station.h"
#include "text/numbers.h"
#include "tools/common/drilling_model.h"

#include <QProcess>
#include <gtest/gtest.h>

TEST(EndToEnd, PacketBytesInAtTheIntakeComeOutAsRowsOfTheJob) {
    storetest::Station s(false);
    ASSERT_TRUE(acq::Form_Load(s.ws));
    const QString job = s.ws.fm_Gas_Chart.txt_db_path.text();
    ASSERT_TRUE(QFile::exists(job));

    drill::Model model;
    std::vector<drill::Sample> sent;
    for (int i = 0; i < 40; ++i) {
        sent.push_back(model.next());
        const QString line = drill::Model::PacketLine(sent.back());
        if (i == 7) {
            // Half a line now, the rest on the next read.
            s.ws.packet.Garrival_buffer += line.left(line.size() / 2);
            acq::tmrDataArrival_Timer(s.ws);
            s.ws.packet.Garrival_buffer += line.mid(line.size() / 2);
        } else {
            s.ws.packet.Garrival_buffer += line;
        }
        acq::tmrDataArrival_Timer(s.ws);
    }
    // The start-up's lag pass found the new job empty and said so; every
    // packet after it was written.
    EXPECT_EQ(s.messages().filter("Recalculate Lag Err: ").size(), 1);
    EXPECT_TRUE(s.messages().filter("DB Write Err").isEmpty())
        << s.ws.fm_Gas_Chart.txt_message.text().toStdString();

    QProcess shell;
    shell.start("sqlite3", {"-separator", "|", job,
                            "SELECT PACKET_NUM, SERIAL_NUM, DT, GAS_UNITS, DEPTH, C1 "
                            "FROM OMBRI_DB_010 ORDER BY PACKET_NUM"});
    ASSERT_TRUE(shell.waitForFinished(20000));
    const QStringList rows =
        QString::fromUtf8(shell.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(rows.size(), static_cast<int>(sent.size()));
    for (size_t i = 0; i < sent.size(); ++i) {
        const drill::Sample& p = sent[i];
        const QStringList c = rows[static_cast<int>(i)].split('|');
        ASSERT_EQ(c.size(), 6);
        EXPECT_EQ(c[0].toLong(), p.packetNumber);
        EXPECT_EQ(c[1], p.fields[acq::SERIALNUM]);
        EXPECT_EQ(c[2], p.time.toString("yyyy-MM-dd HH:mm:ss"));
        EXPECT_DOUBLE_EQ(c[3].toDouble(), text::Val(p.fields[acq::GASUNITS]));
        EXPECT_DOUBLE_EQ(c[4].toDouble(), text::Val(p.fields[acq::DEPTH]));
        EXPECT_DOUBLE_EQ(c[5].toDouble(), text::Val(p.fields[acq::C1]));
    }
}
