// Bad job files and a job held from outside: each gives its message, and
// nothing changes a byte of a file it can't use or a row of one it can.
#include "station.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

using storetest::InsertPackets;
using storetest::RawDb;
using storetest::Station;
using testkit::ReadFile;

namespace {

// A job of n rows whose file alone is the whole job (its log folded in).
void FoldedJob(const QString& job, int n) {
    storetest::MakeJob(job);
    InsertPackets(job, storetest::Packets(n));
    RawDb(job).exec("PRAGMA wal_checkpoint(TRUNCATE)");
}

struct BadFile {
    const char* what;
    std::function<void(const QString& job)> make;
    // The answer to the conversion question, when it is asked.
    std::optional<platform::Answer> convert;
    // What the open says (empty: no error at all).
    QString openSays;
    QString writeSays;
    // A file the program can't use may not change at all; otherwise its rows
    // must come through as they were.
    bool untouched;
};

} // namespace

TEST(BadJob, EachBadFileIsNamedByTheOpenAndTheWriterAndNothingInItIsLost) {
    const BadFile cases[] = {
        {"truncated",
         [](const QString& job) {
             FoldedJob(job, 4000);
             QFile f(job);
             f.resize(f.size() / 2);
         },
         platform::Answer::No, "Open DB Err: The data base file is damaged",
         "DB Write Err: ", true},
        {"no data base at all",
         [](const QString& job) {
             QFile f(job);
             f.open(QIODevice::WriteOnly);
             f.write("This is the mud report, not a job.\r\n" + QByteArray(5000, '-'));
         },
         // Yes: the conversion can't read it either, and leaves nothing.
         platform::Answer::Yes, "Open DB Err: The file is not a data base '",
         "DB Write Err: The file is not a data base", true},
        {"a column missing",
         [](const QString& job) {
             FoldedJob(job, 3);
             RawDb(job).exec("ALTER TABLE OMBRI_DB_010 DROP COLUMN GAS_UNITS");
         },
         std::nullopt, "", "DB Write Err: Item not found in this collection: ", false},
    };
    for (const BadFile& c : cases) {
        SCOPED_TRACE(c.what);
        Station s;
        QFile::remove(s.job);
        c.make(s.job);
        const QByteArray before = ReadFile(s.job);
        const QString rowsBefore = c.untouched ? QString() : RawDb(s.job).packets();

        if (c.convert) s.dialogs.answers.push_back(*c.convert);
        s.open();
        EXPECT_EQ(s.dialogs.boxes.size(), c.convert ? 1u : 0u);
        if (c.openSays.isEmpty())
            EXPECT_FALSE(s.messages().join('|').contains("Err"))
                << s.messages().join('|').toStdString();
        else
            EXPECT_TRUE(s.messages().filter(c.openSays).size() >= 1)
                << s.messages().join('|').toStdString();
        EXPECT_FALSE(QFile::exists(s.job + ".new") || QFile::exists(s.job + ".old"));

        // The live writer says why its row was lost and raises the error flag.
        s.save(10);
        EXPECT_TRUE(s.lastMessage().startsWith(c.writeSays)) << s.lastMessage().toStdString();
        EXPECT_TRUE(s.ws.db.Gdb_error);
        // The error timer's reopen and the chart after it go on quietly.
        s.ws.db.Gdb_error = false;
        store::PrimeLastRecord(s.ws);
        if (c.untouched) {
            EXPECT_EQ(ReadFile(s.job), before);
            EXPECT_FALSE(QFile::exists(s.job + "-wal") && QFileInfo(s.job + "-wal").size() > 0);
        } else {
            RawDb raw(s.job);
            EXPECT_EQ(raw.integrity(), "ok");
            EXPECT_EQ(raw.packets(), rowsBefore);
        }
    }
}

namespace {

// Something done to a good job for as long as the returned object lives.
using Hold = std::shared_ptr<void>;
// A hold whose end runs `undo`.
Hold Undo(std::function<void()> undo) {
    return Hold(new int(0), [undo](void* p) {
        undo();
        delete static_cast<int*>(p);
    });
}

// A file or folder closed to writes, for the super-user too: its immutable
// attribute.
Hold ReadOnly(const QString& path) {
    if (geteuid() == 0) {
        if (QProcess::execute("chattr", {"+i", path}) != 0) return nullptr;
        return Undo([path] { QProcess::execute("chattr", {"-i", path}); });
    }
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    return Undo([path] {
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    });
}
Hold ReadOnlyFolder(const QString& job) {
    return ReadOnly(QFileInfo(job).path());
}

// Another connection inside a write transaction of its own (readers go on,
// a writer waits), until the hold ends.
Hold OtherWriting(const QString& job) {
    auto other = std::make_shared<RawDb>(job);
    return other->exec("BEGIN IMMEDIATE") == SQLITE_OK ? other : nullptr;
}

struct GoodJobHeld {
    const char* what;
    Hold (*hold)(const QString& job);
    bool opens;        // the shared set opens (and reads every row)
    QString openSays;  // else the open's message
    QString writeSays; // the live writer's message while held
    // Held again once the writer has its files open, it still fails (a
    // closed folder does not stop a file already there from growing).
    bool failsAgain;
};

} // namespace

TEST(BadJob, AGoodJobHeldFromOutsideIsReadWhereItCanBeAndStoresAgainOnceFreed) {
    const GoodJobHeld cases[] = {
        {"read-only folder", ReadOnlyFolder, false, "Open DB Err: Could not find or open the file",
         "DB Write Err: Could not find or open", false},
        {"read-only file", ReadOnly, true, "", "DB Write Err: The data base is read-only", false},
        {"another program writing", OtherWriting, true, "",
         "DB Write Err: The data base is locked by another program", true},
    };
    for (const GoodJobHeld& c : cases) {
        SCOPED_TRACE(c.what);
        Station s;
        InsertPackets(s.job, {1, 2, 3});
        RawDb(s.job).exec("PRAGMA wal_checkpoint(TRUNCATE)");
        {
            Hold hold = c.hold(s.job);
            ASSERT_TRUE(hold) << "could not set up";
            s.open();
            EXPECT_EQ(s.ws.db.Grecords.isOpen(), c.opens) << s.messages().join('|').toStdString();
            if (c.opens)
                EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 3);
            else
                EXPECT_TRUE(s.lastMessage().startsWith(c.openSays))
                    << s.messages().join('|').toStdString();
            s.save(4);
            EXPECT_TRUE(s.lastMessage().startsWith(c.writeSays)) << s.lastMessage().toStdString();
            EXPECT_TRUE(s.ws.db.Gdb_error);
            // Every packet fails the same way while it lasts: said once, and
            // the error timer is not called on again for it.
            s.ws.db.Gdb_error = false;
            s.save(6);
            EXPECT_EQ(s.messages().filter("DB Write Err: ").size(), 1)
                << s.messages().join('|').toStdString();
            EXPECT_FALSE(s.ws.db.Gdb_error);
        }
        // Freed: what was there is there, and the next packet is stored.
        s.ws.db.Gdb_error = false;
        store::PrimeLastRecord(s.ws);
        ASSERT_TRUE(s.ws.db.Grecords.isOpen()) << s.messages().join('|').toStdString();
        s.save(5);
        EXPECT_FALSE(s.ws.db.Gdb_error) << s.lastMessage().toStdString();
        RawDb raw(s.job);
        EXPECT_EQ(raw.integrity(), "ok");
        EXPECT_EQ(raw.packets(), "1,2,3,5");
        if (!c.failsAgain) continue;
        // Stored again: the next failure is news.
        Hold again = c.hold(s.job);
        s.save(7);
        EXPECT_TRUE(s.ws.db.Gdb_error);
        EXPECT_EQ(s.messages().filter("DB Write Err: ").size(), 2)
            << s.messages().join('|').toStdString();
    }
}
