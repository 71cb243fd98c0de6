#pragma once
// A workstation with a small job whose every value is known.

#include "file_bytes.h"
#include "raw_db.h"
#include "test_station.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace productstest {

// Six records, two to a foot from 1000 ft; the sixth closes foot 1002.
// Columns not named stay Null.
inline const char* const kSmallJob[] = {
    "1001,'2026-11-01 06:00:00','06:00:00',1000.2,10,2,30,4,2,1,0.5,0.5,20.9,0.5,0,50,NULL",
    "1002,'2026-11-01 06:00:06','06:00:06',1000.7,12,2,30,6,3,1.5,0.75,0.75,21,0.4,1,60,NULL",
    "1003,'2026-11-01 06:00:12','06:00:12',1001.1,20,3,20,8,4,4,2,2,20.5,0.6,2,70,100",
    "1004,'2026-11-01 06:00:18','06:00:18',1001.6,8,3,20,3,1,1,0.5,0.5,20.4,0.7,3,40,NULL",
    "1005,'2026-11-01 06:00:24','06:00:24',1002.3,5,4,15,2,1,1,0.5,0.5,20.3,0.8,4,30,NULL",
    "1006,'2026-11-01 06:00:30','06:00:30',1003.4,7,5,12,3,2,1,0.5,0.5,20.2,0.9,5,20,NULL",
};

class ProductsTest : public ::testing::Test, protected testkit::Station {
  protected:
    QString out = folder.file("out");

    ProductsTest() : Station("JOB.db") {
        ws.Now = [] { return QDateTime(QDate(2026, 11, 2), QTime(12, 0, 0)); };
        QDir().mkpath(out);
    }

    void smallJob() {
        testkit::RawDb raw(job);
        for (const char* row : kSmallJob)
            raw.exec(
                QString("INSERT INTO OMBRI_DB_010 (PACKET_NUM, DT, TIME_TXT, DEPTH, GAS_UNITS, "
                        "MIN_FT, FT_HR, C1, C2, C3, IC4, NC4, O2, CO2, H2S, GAMMA, KW7001) "
                        "VALUES (") +
                row + ")");
        raw.exec("UPDATE OMBRI_DB_010 SET ID = PACKET_NUM, SERIAL_NUM = 'KW1042', "
                 "DATE_TXT = '11/01/2026', ERR_TXT = '0', IC5 = 0, NC5 = 0");
    }

    QString outFile(const QString& name) const { return out + "/" + name; }
    QByteArray bytes(const QString& name) const { return testkit::ReadFile(outFile(name)); }
    bool exists(const QString& name) const { return QFile::exists(outFile(name)); }
    // Lines of a file split at CR LF.
    QList<QByteArray> lines(const QString& name) const {
        QList<QByteArray> l;
        for (const QString& line : QString::fromLatin1(bytes(name)).split("\r\n"))
            l << line.toLatin1();
        return l;
    }
    int logged(const QString& text) const {
        return static_cast<int>(folder.read("ERR_LOG.TXT").count(text));
    }
    long long rows() {
        testkit::RawDb raw(job, testkit::RawDb::Access::ReadOnly);
        return raw.rows();
    }
};

// A row of a delimited file written as "a|b|c": the cells joined by tabs.
inline QByteArray Cells(const char* row) {
    return QByteArray(row).replace('|', '\t');
}

} // namespace productstest
