#pragma once
// A job whose records are written straight through the store with just the
// columns the report reads.

#include "db/recordset.h"
#include "file_bytes.h"
#include "stats/statistics.h"
#include "test_station.h"

#include <QDir>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace statstest {

struct Rec {
    double depth = 1000;
    std::optional<double> bit = 1000;
    std::optional<double> minFt = 1;
    double gas = 10;
};
// Drilling: the bit on bottom at the hole's depth.
inline Rec On(double depth, double minFt = 1, double gas = 10) {
    return {depth, depth, minFt, gas};
}
// Off bottom: the bit 20 ft up, no rate of penetration.
inline Rec Off(double depth, double gas = 10) {
    return {depth, depth - 20, std::nullopt, gas};
}
inline std::vector<Rec> Repeat(int n, const Rec& r) {
    return std::vector<Rec>(size_t(n), r);
}

class Job : public testkit::Station {
  public:
    QString path = job;
    QString report = folder.file("DB_CUE/AUTOTALLY.TXT");
    QDateTime clock{QDate(2026, 11, 1), QTime(5, 0, 0)};
    int secondsApart = 6;
    long packet = 1;

    Job() : Station("JOB.db") {
        ws.fm_setup.txt_stats_filename.setText(report);
        ws.Now = [] { return QDateTime(QDate(2026, 11, 3), QTime(8, 0, 0)); };
    }

    void add(const std::vector<Rec>& rows) {
        db::Database d = db::OpenDatabase(path);
        db::Recordset rs = d.OpenRecordset(db::RecordQuery(db::kRecordTable));
        d.BeginTrans();
        for (const Rec& r : rows) {
            rs.AddNew();
            rs.SetField("ID", static_cast<long long>(packet));
            rs.SetField("PACKET_NUM", static_cast<long long>(packet++));
            rs.SetField("DATE_TXT", clock.toString("MM/dd/yyyy"));
            rs.SetField("TIME_TXT", clock.toString("HH:mm:ss"));
            rs.SetField("DT", clock);
            rs.SetField("DEPTH", r.depth);
            if (r.bit) rs.SetField("BIT_DEPTH", *r.bit);
            if (r.minFt) rs.SetField("MIN_FT", *r.minFt);
            rs.SetField("GAS_UNITS", r.gas);
            rs.Update();
            clock = clock.addSecs(secondsApart);
        }
        d.CommitTrans();
    }

    QStringList run() {
        stats::Generate_Stats_Report(ws);
        return lines(report);
    }
    static QStringList lines(const QString& file) {
        QStringList l = QString::fromUtf8(testkit::ReadFile(file)).split("\r\n");
        if (!l.isEmpty() && l.last().isEmpty()) l.removeLast();
        return l;
    }
    // The status lines of txt_stats without their times.
    QStringList status() const {
        QStringList out;
        for (const QString& l : ws.fm_setup.txt_stats.text().split("\r\n"))
            if (l.contains(" -- ")) out << l.mid(l.indexOf(" -- ") + 4);
        return out;
    }
    // The tally's lines: those that start with an entry number.
    static QStringList tally(const QStringList& l) {
        QStringList out;
        static const QRegularExpression entry(QStringLiteral("^ *\\d+, "));
        for (const QString& s : l)
            if (entry.match(s).hasMatch()) out << s;
        return out;
    }
};

class StatsJob : public ::testing::Test, public Job {};

} // namespace statstest
