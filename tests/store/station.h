#pragma once
// The store suites' helpers: the test station with a blank job named in
// txt_db_path and packets to feed its record writer, and job files looked at
// through a connection of their own, as another program would have.

#include "db/schema.h"
#include "file_bytes.h"
#include "raw_db.h"
#include "store/lifecycle.h"
#include "store/record_writer.h"
#include "test_station.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <sqlite3.h>
#include <vector>

namespace storetest {

using testkit::RawDb;

inline void MakeJob(const QString& path) {
    db::MakeBlankJob(path, db::kRecordTable);
}

// Packet numbers 1 .. n, shuffled when a seed is given.
inline std::vector<int> Packets(int n, unsigned seed = 0) {
    std::vector<int> p(n);
    std::iota(p.begin(), p.end(), 1);
    if (seed) std::shuffle(p.begin(), p.end(), std::mt19937(seed));
    return p;
}

// Rows with the given packet numbers, in that order of insertion, each with
// ID = its packet number, DEPTH = packet * 10 and GAS_UNITS = packet / 2.
inline void InsertPackets(const QString& path, const std::vector<int>& packets) {
    RawDb raw(path);
    raw.exec("BEGIN");
    for (int p : packets)
        raw.exec(QString("INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, DT, DEPTH, GAS_UNITS, ERR_TXT) "
                         "VALUES (%1, %1, '2026-11-01 06:00:00', %2, %3, '0')")
                     .arg(p)
                     .arg(p * 10)
                     .arg(p / 2.0));
    raw.exec("COMMIT");
}

struct Station : testkit::Station {
    explicit Station(bool makeJob = true) : testkit::Station("JOB.DB", makeJob) {}

    // A packet with packet number n at 06:00:00 plus six seconds a packet.
    // Numeric field i holds "i.5", so a column shows which field it took.
    void packet(int n) {
        auto& f = ws.packet.Gombri_data_array;
        for (int i = 0; i < 40; ++i) f[i] = QString::number(i) + ".5";
        const QDateTime t = QDateTime(QDate(2026, 11, 1), QTime(6, 0, 0)).addSecs(6LL * n);
        f[acq::SERIALNUM] = "KW1042";
        f[acq::DATE] = t.toString("MM/dd/yyyy");
        f[acq::OMBRITIME] = t.toString("HH:mm:ss");
        f[acq::ERRTXT] = "0 ";
        f[acq::PACKETNUM] = QString::number(n);
    }
    void save(int n) {
        packet(n);
        store::SaveKWData(ws);
    }

    // Opens the job as the start-up does (verify, path from txt_db_path):
    // the verify flag comes back lowered and the shared set free.
    void open() {
        QString path;
        bool verify = true;
        store::OpenSharedDb(ws, path, verify);
        EXPECT_FALSE(verify);
        EXPECT_FALSE(ws.db.Gdb_busy);
    }

    long long rows() { return RawDb(job).rows(); }
    // A column of the row with packet number n, as text.
    QString column(int n, const QString& col) {
        return RawDb(job).value(
            QString("SELECT %1 FROM OMBRI_DB_010 WHERE PACKET_NUM = %2").arg(col).arg(n));
    }
};

} // namespace storetest
