// The recordset over real job files: keyset order, moves, Null, the error
// numbers the messages depend on, and what another connection sees.
#include "store_fixture.h"

#include <gtest/gtest.h>

using namespace db;
using storetest::InsertPackets;
using storetest::Packets;
using storetest::RawDb;

namespace {

int ErrorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const DbError& e) {
        return e.number();
    }
    return 0;
}

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
    Recordset adder() const {
        return db.OpenRecordset(RecordQuery(kRecordTable), RecordsetType::AppendOnly);
    }
};

void Add(Recordset& rs, const Variant& packet) {
    rs.AddNew();
    rs.SetField("PACKET_NUM", packet);
    rs.Update();
}

// The packet numbers from the current record to the end.
QList<long> Rest(Recordset& rs) {
    QList<long> seen;
    for (; !rs.Eof(); rs.MoveNext()) seen << rs.Fields("PACKET_NUM").toLong();
    return seen;
}

} // namespace

TEST(Recordset, WalksInPacketOrderWhateverOrderTheRowsWereWritten) {
    // The first half written in order, the second half shuffled, so both
    // kinds of read-ahead run.
    Job job(Packets(4000, 7, 2000));
    Recordset rs = job.records();
    ASSERT_EQ(rs.RecordCount(), 4000);
    int expected = 1;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        ASSERT_EQ(rs.Fields("PACKET_NUM").toLong(), expected);
        ASSERT_EQ(rs.AbsolutePosition(), expected - 1);
        ASSERT_DOUBLE_EQ(rs.Fields("DEPTH").toDouble(), expected * 10.0);
        ++expected;
    }
    EXPECT_EQ(expected, 4001);
    EXPECT_EQ(rs.AbsolutePosition(), -1);

    for (rs.MoveLast(); !rs.Bof(); rs.MovePrevious()) {
        --expected;
        ASSERT_EQ(rs.Fields(QStringLiteral("PACKET_NUM")).toLong(), expected);
    }
    EXPECT_EQ(expected, 1);

    // Jumps back and forth, as two cursors on one recordset do.
    std::mt19937 rng(3);
    for (int i = 0; i < 500; ++i) {
        const int p = static_cast<int>(rng() % 4000);
        rs.SetAbsolutePosition(p);
        ASSERT_EQ(rs.Fields("ID").toLong(), p + 1);
        ASSERT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), (p + 1) / 2.0);
    }
}

TEST(Recordset, EndsOfTheKeysetAndTheErrorsBeyondThem) {
    Job job;
    Recordset empty = job.records();
    EXPECT_TRUE(empty.Bof() && empty.Eof());
    EXPECT_EQ(empty.RecordCount(), 0);
    EXPECT_EQ(empty.AbsolutePosition(), -1);
    for (auto step : {&Recordset::MoveFirst, &Recordset::MoveLast})
        EXPECT_EQ(ErrorOf([&] { (empty.*step)(); }), err::NoCurrentRecord);

    InsertPackets(job.path, {5});
    Recordset one = job.records();
    EXPECT_FALSE(one.Bof());
    EXPECT_EQ(one.Fields("PACKET_NUM").toLong(), 5);
    one.MovePrevious();
    EXPECT_TRUE(one.Bof());
    EXPECT_FALSE(one.Eof());
    EXPECT_EQ(ErrorOf([&] { one.Fields("ID"); }), err::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { one.MovePrevious(); }), err::NoCurrentRecord);
    one.MoveNext();
    EXPECT_EQ(one.AbsolutePosition(), 0);
    one.MoveNext();
    EXPECT_TRUE(one.Eof());
    EXPECT_EQ(ErrorOf([&] { one.MoveNext(); }), err::NoCurrentRecord);
    for (int bad : {1, -1})
        EXPECT_EQ(ErrorOf([&] { one.SetAbsolutePosition(bad); }), err::InvalidArgument);
    one.SetAbsolutePosition(0);
    EXPECT_EQ(one.Fields("ID").toLong(), 5);
}

TEST(Recordset, NullIsAStateOfItsOwn) {
    Job job({1, 2});
    Recordset rs = job.records();

    const Variant lag = rs.Fields("LAG_GU");
    EXPECT_TRUE(lag.isNull());
    EXPECT_EQ(ErrorOf([&] { lag.toDouble(); }), err::InvalidUseOfNull);
    EXPECT_EQ(lag.valueOr(7), 7);
    EXPECT_EQ(rs.Fields("TEXT1").toText(), "");
    EXPECT_EQ(rs.Fields("DEPTH").valueOr(7), 10);

    // A value goes in and comes back, and Null goes back in just as well.
    rs.Edit();
    rs.SetField("LAG_GU", 1234.5);
    rs.Update();
    EXPECT_DOUBLE_EQ(rs.Fields("LAG_GU").toDouble(), 1234.5);
    rs.Edit();
    rs.SetField("DEPTH", Variant::Null());
    rs.Update();
    EXPECT_TRUE(rs.Fields("DEPTH").isNull());
    EXPECT_EQ(RawDb(job.path).value(
                  "SELECT quote(DEPTH) || ' ' || LAG_GU FROM OMBRI_DB_010 WHERE PACKET_NUM = 1"),
              "NULL 1234.5");
}

TEST(Recordset, RowsAddedAfterTheOpenStayOutOfTheKeysetUntilRequery) {
    Job job({10, 20, 30});
    Recordset rs = job.records();

    // One added through the recordset itself, one by another program, one
    // of them sorting between the rows already there.
    rs.MoveLast();
    Add(rs, 40);
    EXPECT_EQ(rs.Fields("PACKET_NUM").toLong(), 30); // the position stays
    ASSERT_EQ(RawDb(job.path).exec("INSERT INTO OMBRI_DB_010 (PACKET_NUM) VALUES (15)"), SQLITE_OK);

    EXPECT_EQ(rs.RecordCount(), 3);
    rs.MoveFirst();
    EXPECT_EQ(Rest(rs), (QList<long>{10, 20, 30}));
    rs.Requery();
    EXPECT_EQ(Rest(rs), (QList<long>{10, 15, 20, 30, 40}));
}

TEST(Recordset, ChangesByAnotherConnectionToRowsOfTheKeysetAreSeen) {
    Job job(Packets(300));
    Recordset rs = job.records();
    rs.SetAbsolutePosition(100);
    EXPECT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), 50.5);

    RawDb raw(job.path);
    ASSERT_EQ(raw.exec("UPDATE OMBRI_DB_010 SET GAS_UNITS = 777 WHERE PACKET_NUM = 101"),
              SQLITE_OK);
    ASSERT_EQ(raw.exec("DELETE FROM OMBRI_DB_010 WHERE PACKET_NUM = 102"), SQLITE_OK);
    rs.MoveFirst();
    rs.SetAbsolutePosition(100);
    EXPECT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), 777);
    rs.MoveNext();
    EXPECT_EQ(ErrorOf([&] { rs.Fields("GAS_UNITS"); }), err::RecordDeleted);
    rs.MoveNext();
    EXPECT_EQ(rs.Fields("PACKET_NUM").toLong(), 103);

    // A change made through another recordset on the same connection is seen
    // at once, read-ahead or not.
    Recordset other = job.records();
    other.SetAbsolutePosition(102); // its keyset lacks the deleted row
    ASSERT_EQ(other.Fields("PACKET_NUM").toLong(), 104);
    other.Edit();
    other.SetField("GAS_UNITS", 5.25);
    other.Update();
    rs.MoveNext();
    EXPECT_DOUBLE_EQ(rs.Fields("GAS_UNITS").toDouble(), 5.25);
}

TEST(Recordset, EditsOnALongPassLandInTheFileAndInWhatThePassReadsBack) {
    Job job(Packets(3000, 11));
    Recordset rs = job.records();
    {
        Transaction t(job.db);
        int id = 5000;
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
            rs.Edit();
            rs.SetField("ID", id++);
            rs.SetField("ERR_TXT", "0 *");
            rs.Update();
        }
        t.Commit();
    }
    int id = 5000;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        ASSERT_EQ(rs.Fields("ID").toLong(), id++);
        ASSERT_EQ(rs.Fields("ERR_TXT").toText(), "0 *");
    }
    EXPECT_EQ(
        RawDb(job.path).number("SELECT count(*) FROM OMBRI_DB_010 WHERE ID = PACKET_NUM + 4999"),
        3000);
}

TEST(Recordset, DeleteLeavesTheWalkGoingToTheNextRow) {
    Job job({1, 2, 3, 4, 5, 6});
    Recordset rs = job.db.OpenRecordset(" SELECT * FROM OMBRI_DB_010 WHERE ID BETWEEN 2 AND 6 "
                                        "ORDER BY PACKET_NUM");
    EXPECT_EQ(rs.RecordCount(), 5);
    QList<long> kept;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const long p = rs.Fields("PACKET_NUM").toLong();
        if (p == 3 || p == 4 || p == 6) {
            rs.Delete();
            EXPECT_EQ(ErrorOf([&] { rs.Fields("ID"); }), err::RecordDeleted);
        } else {
            kept << p;
        }
    }
    EXPECT_EQ(kept, (QList<long>{2, 5}));
    EXPECT_EQ(rs.RecordCount(), 2);
    EXPECT_EQ(RawDb(job.path).packets(), "1,2,5");
}

TEST(Recordset, TransactionsNestAndAGuardRollsBackWhatItDidNotCommit) {
    Job job;
    const Database& db = job.db;
    Recordset rs = job.adder();
    db.BeginTrans();
    Add(rs, 1);
    db.BeginTrans();
    Add(rs, 2);
    EXPECT_EQ(db.TransactionLevel(), 2);
    db.Rollback();
    Add(rs, 3);
    db.CommitTrans();
    {
        Transaction t(db);
        Add(rs, 4);
    }
    {
        Transaction t(db);
        Add(rs, 5);
        t.Commit();
    }
    EXPECT_EQ(ErrorOf([&] { db.CommitTrans(); }), err::NoTransaction);
    RawDb raw(job.path);
    EXPECT_EQ(raw.packets(), "1,3,5");

    // A workspace's transaction spans its databases.
    Workspace ws = Workspace::Create("test");
    Database a = ws.OpenDatabase(job.path);
    Recordset ra = a.OpenRecordset(RecordQuery(kRecordTable), RecordsetType::AppendOnly);
    ws.BeginTrans();
    Add(ra, 6);
    ws.Rollback();
    EXPECT_EQ(raw.rows(), 3);
    ws.Close();
    EXPECT_FALSE(a.isOpen());
    EXPECT_EQ(ErrorOf([&] { ra.AddNew(); }), err::ObjectClosed);
}

TEST(Recordset, ValuesAreConvertedWhenSetAndARepeatedPacketNumberIsError3022) {
    Job job({1});
    Recordset rs = job.adder();
    EXPECT_EQ(rs.RecordCount(), 0); // it reads nothing
    rs.AddNew();
    EXPECT_EQ(ErrorOf([&] { rs.SetField("PACKET_NUM", " "); }), err::ConversionError);
    EXPECT_EQ(ErrorOf([&] { rs.SetField("PACKET_NUM", "12abc"); }), err::ConversionError);
    EXPECT_EQ(ErrorOf([&] { rs.SetField("NO_SUCH", 1); }), err::ItemNotFound);
    rs.SetField("PACKET_NUM", " 12 ");
    rs.SetField("ID", 2.5); // a long takes the even neighbour of a tie
    rs.SetField("DEPTH", "1234.5");
    rs.SetField("SERIAL_NUM", 42);
    rs.SetField("DT", QDateTime(QDate(2026, 11, 1), QTime(6, 0, 6)));
    EXPECT_EQ(ErrorOf([&] { rs.SetField("DT", "not a date"); }), err::ConversionError);
    rs.Update();
    EXPECT_EQ(ErrorOf([&] { rs.SetField("ID", 1); }), err::UpdateWithoutEdit);
    // A packet number that is there already: nothing of the row is written.
    rs.AddNew();
    rs.SetField("PACKET_NUM", "1");
    rs.SetField("GAS_UNITS", 99.0);
    EXPECT_EQ(ErrorOf([&] { rs.Update(); }), err::DuplicateKey);

    RawDb raw(job.path);
    EXPECT_EQ(raw.rows(), 2);
    EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE GAS_UNITS = 99"), 0);
    EXPECT_EQ(raw.value("SELECT typeof(PACKET_NUM)||' '||PACKET_NUM||' '||ID||' '||typeof(DEPTH)||"
                        "' '||SERIAL_NUM||' '||DT FROM OMBRI_DB_010 WHERE PACKET_NUM = 12"),
              "integer 12 2 real 42 2026-11-01 06:00:06");

    Recordset back = job.records();
    back.MoveLast();
    EXPECT_EQ(back.Fields("DT").kind(), Variant::Kind::Date);
    EXPECT_EQ(back.Fields("DT"), Variant(QDateTime(QDate(2026, 11, 1), QTime(6, 0, 6))));
    EXPECT_EQ(back.Fields("DT").toText(), "11/01/2026 06:00:06");
    // Columns read for the first time on a row already cached come too.
    EXPECT_EQ(back.Fields("PACKET_NUM").toLong(), 12);
    EXPECT_DOUBLE_EQ(back.Fields("DEPTH").toDouble(), 1234.5);
}

TEST(Recordset, TablesAreMadeOnceAndEveryFailureCarriesItsNumber) {
    Job job;
    const Database& db = job.db;
    EXPECT_EQ(db.TableDefs(), (QStringList{"LagPara", "OMBRI_DB_010"}));
    QStringList names;
    for (const ColumnDef& c : kRecordColumns) names << c.name;
    EXPECT_EQ(db.FieldNames(kRecordTable), names);

    TableDef lag{kLagTable, {{"ZoneNumber", DataType::Double}}};
    EXPECT_EQ(ErrorOf([&] { db.Append(lag); }), err::TableExists);
    EXPECT_EQ(ErrorOf([&] {
                  db.AppendField(kRecordTable, {"IC5", DataType::Double});
              }),
              err::FieldExists);
    db.AppendField(kRecordTable, {"EXTRA_1", DataType::Double});
    EXPECT_TRUE(db.FieldNames(kRecordTable).contains("EXTRA_1"));

    // Opens that fail leave the handle closed, and a closed handle says so.
    Database other;
    auto missing = TryOpenDatabase(job.folder.file("nothing.db"), other);
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->number(), err::FileNotFound);
    EXPECT_FALSE(other.isOpen());
    EXPECT_FALSE(job.folder.exists("nothing.db"));

    QFile text(job.folder.file("notes.db"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write(QByteArray(4096, 'x'));
    text.close();
    auto notDb = TryOpenDatabase(job.folder.file("notes.db"), other);
    ASSERT_TRUE(notDb);
    EXPECT_EQ(notDb->number(), err::NotADatabase);
    EXPECT_TRUE(notDb->description().contains("notes.db"));
    EXPECT_EQ(ErrorOf([&] { other.OpenRecordset(RecordQuery(kRecordTable)); }), err::ObjectClosed);

    ASSERT_FALSE(TryOpenDatabase(job.path, other));
    EXPECT_EQ(ErrorOf([&] { other.OpenRecordset(RecordQuery("OMBRI_DB_005")); }),
              err::TableNotFound);
    EXPECT_EQ(ErrorOf([&] { other.OpenRecordset(" SELECT * FROM LagPara ORDER BY NOPE"); }),
              err::ItemNotFound);
}

TEST(Recordset, CopiesAndCompactsHoldEveryCommittedRow) {
    // The writer stays open, so the commits may still sit in the log file.
    Job job;
    Recordset rs = job.adder();
    for (int p : Packets(500)) Add(rs, p);
    const QString copy = job.folder.file("copy.db");
    const QString compact = job.folder.file("compact.db");
    CopyDatabase(job.path, copy);
    CompactDatabase(job.path, compact);
    EXPECT_EQ(ErrorOf([&] { CompactDatabase(job.path, compact); }), err::Engine);
    for (const QString& f : {copy, compact}) {
        RawDb raw(f);
        EXPECT_EQ(raw.rows(), 500);
        EXPECT_EQ(raw.value("PRAGMA integrity_check"), "ok");
    }
}
