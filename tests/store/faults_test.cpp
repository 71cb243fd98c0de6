// Bad job files and a bad disk: each gives the system's message through the
// message box, nothing escapes, nothing stored is lost, and the program goes
// on.
#include "station.h"

#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>
#include <unistd.h>

using storetest::InsertPackets;
using storetest::RawDb;
using storetest::Station;
using namespace store;
using namespace db;

namespace {

// A file nobody may write, whoever runs the tests: permissions stop other
// users, the immutable attribute stops the super-user too.
class ReadOnlyFile {
  public:
    explicit ReadOnlyFile(const QString& path) : path_(path) {
        if (geteuid() == 0)
            ok_ = QProcess::execute("chattr", {"+i", path}) == 0;
        else
            ok_ = QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup);
    }
    ~ReadOnlyFile() {
        if (geteuid() == 0)
            QProcess::execute("chattr", {"-i", path_});
        else
            QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner);
    }
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;
    bool ok() const { return ok_; }

  private:
    QString path_;
    bool ok_ = false;
};

// Another program holding the job file locked for itself: the SQLite shell
// in exclusive locking mode, inside a write transaction, until told to quit.
class LockingProgram {
  public:
    explicit LockingProgram(const QString& path) {
        shell_.setProcessChannelMode(QProcess::MergedChannels);
        shell_.start("sqlite3", {path});
        shell_.waitForStarted(5000);
        shell_.write("PRAGMA locking_mode = EXCLUSIVE;\n"
                     "BEGIN EXCLUSIVE;\n"
                     "UPDATE OMBRI_DB_010 SET GAS_UNITS = GAS_UNITS;\n"
                     "SELECT 'locked';\n");
        while (!shell_.readAll().contains("locked") && shell_.waitForReadyRead(5000)) {
        }
    }
    ~LockingProgram() { release(); }
    void release() {
        if (shell_.state() == QProcess::NotRunning) return;
        shell_.write("ROLLBACK;\n.quit\n");
        shell_.closeWriteChannel();
        if (!shell_.waitForFinished(5000)) shell_.kill();
        shell_.waitForFinished(5000);
    }

  private:
    QProcess shell_;
};

} // namespace

TEST(Faults, AFileThatIsNoDataBaseIsReportedAndLeftAlone) {
    Station s(false);
    QFile f(s.job);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("This is the mud report, not a job.\r\n" + QByteArray(5000, '-'));
    f.close();
    const QByteArray before = s.folder.read("DB_CUE/JOB.DB").toLatin1();

    // The failed test open asks whether to convert; No leaves it as it is.
    s.open();
    EXPECT_TRUE(s.lastMessage().startsWith("Open DB Err: The file is not a data base '" + s.job))
        << s.lastMessage().toStdString();
    ASSERT_EQ(s.dialogs.boxes.size(), 1u);
    EXPECT_EQ(s.dialogs.boxes[0].title, "CONVERT DATA BASE TO NEW TYPE?");
    EXPECT_FALSE(s.ws.db.Grecords.isOpen());

    // Yes: the conversion can't read it and says so; nothing is changed and
    // nothing left beside it.
    const auto failures = [&] { return s.messages().filter("Open DB Err: ").size(); };
    const auto before_yes = failures();
    s.dialogs.answers.push_back(platform::Answer::Yes);
    s.open();
    EXPECT_EQ(s.dialogs.boxes.size(), 2u);
    // One from the conversion, one from the open after it.
    EXPECT_EQ(failures(), before_yes + 2) << s.messages().join('|').toStdString();
    EXPECT_EQ(s.folder.read("DB_CUE/JOB.DB").toLatin1(), before);
    EXPECT_FALSE(QFile::exists(s.job + ".new"));
    EXPECT_FALSE(QFile::exists(s.job + ".old"));
    PrimeLastRecord(s.ws); // the refresh's reopen fails the same way, quietly

    s.save(1);
    EXPECT_TRUE(s.lastMessage().startsWith("DB Write Err: The file is not a data base"));
    EXPECT_TRUE(s.lastMessage().endsWith(" 3343  Err point: 0"));
    EXPECT_TRUE(s.ws.db.Gdb_error);
    EXPECT_EQ(s.folder.read("DB_CUE/JOB.DB").toLatin1(), before);
    EXPECT_TRUE(s.folder.read("ERR_LOG.TXT").contains("Open DB Err: The file is not a data base"));
}

TEST(Faults, AReadOnlyJobIsShownAndEveryWriteSaysWhyItFailed) {
    Station s;
    InsertPackets(s.job, {1, 2, 3});
    ReadOnlyFile lock(s.job);
    ASSERT_TRUE(lock.ok());

    s.open();
    ASSERT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 3);
    EXPECT_TRUE(s.ws.db.Gdb.ReadOnly());

    s.save(4);
    EXPECT_TRUE(s.lastMessage().startsWith("DB Write Err: The data base is read-only"))
        << s.lastMessage().toStdString();
    EXPECT_TRUE(s.lastMessage().contains(" 3027  Err point: "));
    EXPECT_TRUE(s.ws.db.Gdb_error);
    EXPECT_EQ(s.rows(), 3);
}

TEST(Faults, AJobLockedByAnotherProgramIsReportedAndPicksUpOnceReleased) {
    Station s;
    InsertPackets(s.job, {1, 2});
    {
        LockingProgram other(s.job);
        s.open();
        EXPECT_TRUE(
            s.lastMessage().startsWith("Open DB Err: The data base is locked by another program"))
            << s.lastMessage().toStdString();
        EXPECT_FALSE(s.ws.db.Grecords.isOpen());
        s.save(3);
        EXPECT_TRUE(s.lastMessage().startsWith("DB Write Err: The data base is locked"));
        EXPECT_TRUE(s.lastMessage().contains(" 3260  Err point: "));
        other.release();
    }
    // The error timer's reopen finds the file free again.
    PrimeLastRecord(s.ws);
    ASSERT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 2);
    s.save(4);
    EXPECT_EQ(s.rows(), 3);
}

TEST(Faults, AFullDiskCostsTheRowBeingWrittenAndNothingElse) {
    Station s;
    s.open();
    int n = 0;
    while (n < 5) s.save(++n);
    ASSERT_TRUE(s.ws.db.writerDb.isOpen());
    // The file may not grow by one page more: as good as a full disk.
    const long long pages = RawDb(s.job).number("PRAGMA page_count");
    s.ws.db.writerDb.Execute(QString("PRAGMA max_page_count = %1").arg(pages));
    for (int tries = 0; tries < 3; ++tries) {
        s.packet(++n);
        s.ws.packet.Gombri_data_array[acq::ERRTXT] = QString(3000, '9');
        SaveKWData(s.ws);
        if (s.ws.db.Gdb_error) break;
        s.ws.db.writerDb.Execute(QString("PRAGMA max_page_count = %1").arg(pages));
    }
    ASSERT_TRUE(s.ws.db.Gdb_error);
    EXPECT_TRUE(s.lastMessage().startsWith("DB Write Err: The disk is full"))
        << s.lastMessage().toStdString();
    EXPECT_TRUE(s.lastMessage().endsWith(" 3026  Err point: 52"));
    // The rows before are all there and whole; the failed one is not.
    RawDb raw(s.job);
    EXPECT_EQ(raw.value("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE PACKET_NUM <= 5"), 5);
    EXPECT_EQ(s.column(n, "count(*)"), "0");
    // Room again (the writer's connection was dropped with the failure): the
    // next row goes in.
    s.ws.db.Gdb_error = false;
    s.save(++n);
    EXPECT_FALSE(s.ws.db.Gdb_error);
    EXPECT_EQ(s.column(n, "count(*)"), "1");
}
