#pragma once
// The test station with a blank job named in txt_db_path, and packets to
// feed its record writer.

#include "store/lifecycle.h"
#include "store/record_writer.h"
#include "store_fixture.h"
#include "test_station.h"

#include <gtest/gtest.h>

namespace storetest {

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
    // Packet n handed to the record writer as it is.
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
