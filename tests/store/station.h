#pragma once
// A workstation over a temporary program folder with a blank job named in
// txt_db_path, and packets to feed its record writer.

#include "program_folder.h"
#include "scripted_dialogs.h"
#include "store/lifecycle.h"
#include "store/record_writer.h"
#include "store_fixture.h"
#include "workstation/workstation.h"

#include <QDir>
#include <gtest/gtest.h>

namespace storetest {

struct Station {
    testkit::ProgramFolder folder;
    testkit::ScriptedDialogs dialogs;
    testkit::WiredWorkstation ws{folder.path(), &dialogs};
    QString job = folder.file("DB_CUE/JOB.DB");

    explicit Station(bool makeJob = true) {
        QDir().mkpath(folder.file("DB_CUE"));
        if (makeJob) MakeJob(job);
        ws.fm_Gas_Chart.txt_db_path.setText(job);
    }

    // Every line shown through the message box so far.
    QStringList messages() const {
        return ws.fm_Gas_Chart.txt_message.text().split("\r\n", Qt::SkipEmptyParts);
    }
    QString lastMessage() const {
        const QStringList m = messages();
        return m.isEmpty() ? QString() : m.last();
    }
    bool saw(const QString& text) const { return messages().contains(text); }

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
