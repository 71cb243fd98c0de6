// The recordset over real job files, and copies of an open job.
#include "station.h"

#include <gtest/gtest.h>

using namespace db;
using storetest::InsertPackets;
using storetest::Packets;
using storetest::RawDb;

namespace {

// A job with rows of the given packet numbers, open on a connection of its own.
struct Job {
    testkit::ProgramFolder folder;
    QString path = folder.file("job.db");
    Database db;
    explicit Job(const std::vector<int>& packets = {}) {
        storetest::MakeJob(path);
        InsertPackets(path, packets);
        db = OpenDatabase(path);
    }
    Recordset records() const { return db.OpenRecordset(RecordQuery(kRecordTable)); }
};

void Add(Recordset& rs, const Variant& packet) {
    rs.AddNew();
    rs.SetField("PACKET_NUM", packet);
    rs.Update();
}

} // namespace

TEST(Recordset, TheKeysetIsFixedAtTheOpenButChangesToItsRowsAreSeen) {
    Job job(Packets(300));
    Recordset rs = job.records();
    RawDb raw(job.path);
    // Rows added after the open, by the recordset and by another program,
    // stay out until a requery.
    rs.MoveLast();
    Add(rs, 400);
    EXPECT_EQ(rs.Fields("PACKET_NUM").toLong(), 300); // the position stays
    ASSERT_EQ(raw.exec("INSERT INTO OMBRI_DB_010 (PACKET_NUM) VALUES (350)"), SQLITE_OK);
    EXPECT_EQ(rs.RecordCount(), 300);

    rs.SetAbsolutePosition(100);
    EXPECT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), 50.5);
    ASSERT_EQ(raw.exec("UPDATE OMBRI_DB_010 SET GAS_UNITS = 777 WHERE PACKET_NUM = 101"),
              SQLITE_OK);
    ASSERT_EQ(raw.exec("DELETE FROM OMBRI_DB_010 WHERE PACKET_NUM = 102"), SQLITE_OK);
    rs.MoveFirst();
    rs.SetAbsolutePosition(100);
    EXPECT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), 777);
    rs.MoveNext();
    try {
        rs.Fields("GAS_UNITS");
        ADD_FAILURE() << "a deleted row was read";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), err::RecordDeleted);
    }
    rs.MoveNext();
    EXPECT_EQ(rs.Fields("PACKET_NUM").toLong(), 103);

    // A change through another recordset on the same connection is seen at
    // once, read-ahead or not.
    Recordset other = job.records();
    other.SetAbsolutePosition(102); // its keyset lacks the deleted row
    ASSERT_EQ(other.Fields("PACKET_NUM").toLong(), 104);
    other.Edit();
    other.SetField("GAS_UNITS", 5.25);
    other.Update();
    rs.MoveNext();
    EXPECT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), 5.25);

    rs.Requery();
    rs.SetAbsolutePosition(297);
    QList<long> rest;
    for (; !rs.Eof(); rs.MoveNext()) rest << rs.Fields("PACKET_NUM").toLong();
    EXPECT_EQ(rest, (QList<long>{299, 300, 350, 400}));
}

TEST(Recordset, ACopyOfAnOpenJobHoldsEveryCommittedRow) {
    // The writer stays open, so the commits may still sit in the log file.
    Job job;
    Recordset rs = job.db.OpenRecordset(RecordQuery(kRecordTable), RecordsetType::AppendOnly);
    for (int p : Packets(500)) Add(rs, p);
    const QString copy = job.folder.file("copy.db");
    CopyDatabase(job.path, copy);
    RawDb raw(copy);
    EXPECT_EQ(raw.rows(), 500);
    EXPECT_EQ(raw.integrity(), "ok");
}
