// Where an installed program keeps the user's files, how the first start
// fills that folder and an update leaves it alone, and what a start says
// when it cannot take its lock.
#include "acquisition/startup.h"
#include "file_bytes.h"
#include "platform/folder_choice.h"
#include "program_folder.h"
#include "scripted_dialogs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using platform::ChooseProgramFolder;
using platform::FillFromShared;

using testkit::ReadFile;
using testkit::WriteFile;

namespace {

// A folder this user can't write: root writes anywhere it may, but not
// into /proc.
QString UnwritableFolder(const QTemporaryDir& scratch) {
    if (geteuid() == 0) return "/proc";
    const QString dir = scratch.path() + "/readonly";
    QDir().mkpath(dir);
    QFile::setPermissions(dir, QFile::ReadOwner | QFile::ExeOwner);
    return dir;
}

} // namespace

TEST(FolderChoice, BesideAWritableBuildElseTheUsersFolder) {
    QTemporaryDir scratch;
    const QString root = scratch.path();
    const QString user = root + "/home/.local/share/gaschart";
    QDir().mkpath(root + "/build");
    QDir().mkpath(root + "/usr/bin");
    QDir().mkpath(root + "/usr/share/gaschart");
    QDir().mkpath(root + "/opt/bin");
    const QString unwritable = UnwritableFolder(scratch);

    struct Case {
        const char* what;
        QString exeDir;
        QString folder;
        QString shared;
    } cases[] = {
        {"a build folder, as always", root + "/build", root + "/build", ""},
        {"installed, share/gaschart beside bin/", root + "/usr/bin", user,
         root + "/usr/share/gaschart"},
        {"a folder this user may not write", unwritable, user, ""},
        {"no share folder, bin writable: not installed", root + "/opt/bin", root + "/opt/bin", ""},
    };
    for (const Case& c : cases) {
        const platform::FolderChoice got = ChooseProgramFolder(c.exeDir, user);
        EXPECT_EQ(got.path, c.folder) << c.what;
        EXPECT_EQ(got.shared, c.shared) << c.what;
        EXPECT_EQ(got.perUser, c.folder == user) << c.what;
    }
    // Trying the folder leaves nothing in it.
    EXPECT_EQ(
        QDir(root + "/build").entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList());
}

TEST(FolderChoice, FirstStartFillsTheFolderAndAnUpdateOnlyAddsWhatIsMissing) {
    QTemporaryDir scratch;
    const QString shared = scratch.path() + "/share/gaschart";
    const QString folder = scratch.path() + "/data/gaschart";
    ASSERT_TRUE(WriteFile(shared + "/WITSconfig_V10.txt", "names v1"));
    ASSERT_TRUE(WriteFile(shared + "/V11_DEMO.DB", "demo v1"));
    ASSERT_TRUE(WriteFile(shared + "/OMBRI_010_BLANK.db", "blank v1"));
    // The package carries the demonstration job once: DB_CUE holds a link.
    QDir().mkpath(shared + "/DB_CUE");
    ASSERT_TRUE(QFile::link("../V11_DEMO.DB", shared + "/DB_CUE/V11_DEMO.DB"));
    // Installed files are read-only to the user.
    for (const char* name : {"WITSconfig_V10.txt", "V11_DEMO.DB", "OMBRI_010_BLANK.db"})
        QFile::setPermissions(shared + "/" + name, QFile::ReadOwner | QFile::ReadGroup);

    EXPECT_EQ(FillFromShared(shared, folder),
              (QStringList{"DB_CUE/V11_DEMO.DB", "OMBRI_010_BLANK.db", "V11_DEMO.DB",
                           "WITSconfig_V10.txt"}));
    const QFileInfo job(folder + "/DB_CUE/V11_DEMO.DB");
    EXPECT_FALSE(job.isSymLink()) << "the user's job is a file of its own";
    EXPECT_TRUE(job.isWritable());

    // The user works: a changed job and item file, one file removed.
    ASSERT_TRUE(WriteFile(folder + "/DB_CUE/V11_DEMO.DB", "two days of the user's rows"));
    ASSERT_TRUE(WriteFile(folder + "/WITSconfig_V10.txt", "names the user edited"));
    ASSERT_TRUE(QFile::remove(folder + "/OMBRI_010_BLANK.db"));

    // An update brings new versions and a new file.
    QFile::setPermissions(shared + "/WITSconfig_V10.txt", QFile::WriteOwner | QFile::ReadOwner);
    ASSERT_TRUE(WriteFile(shared + "/WITSconfig_V10.txt", "names v2"));
    ASSERT_TRUE(WriteFile(shared + "/templates/NEW.TXT", "new in v2"));
    EXPECT_EQ(FillFromShared(shared, folder),
              (QStringList{"OMBRI_010_BLANK.db", "templates/NEW.TXT"}));
    EXPECT_EQ(ReadFile(folder + "/DB_CUE/V11_DEMO.DB"), "two days of the user's rows");
    EXPECT_EQ(ReadFile(folder + "/WITSconfig_V10.txt"), "names the user edited");
    EXPECT_EQ(ReadFile(folder + "/OMBRI_010_BLANK.db"), "blank v1");
    EXPECT_EQ(ReadFile(folder + "/templates/NEW.TXT"), "new in v2");
    // No half copies left about, and nothing to do the next time.
    EXPECT_FALSE(QFileInfo::exists(folder + "/templates/NEW.TXT.part"));
    EXPECT_EQ(FillFromShared(shared, folder), QStringList());
    EXPECT_EQ(FillFromShared(QString(), folder), QStringList()) << "not installed";
}

TEST(SingleCopyLock, SaysWhyItCouldNotBeTakenInItsOwnWords) {
    QTemporaryDir scratch;
    const QString lock = scratch.path() + "/gaschart.lock";
    const QString missing = scratch.path() + "/gone/gaschart.lock";
    struct Case {
        QLockFile::LockError error;
        QString path;
        const char* title;
        const char* says;
    } cases[] = {
        {QLockFile::LockFailedError, lock, "OOPS! COPY ALLREADY LOADED",
         "There is already a copy of this program\r\nrunning in memory.  This one will now close"},
        {QLockFile::PermissionError, lock, "CANNOT START", "This user may not write in "},
        {QLockFile::UnknownError, lock, "CANNOT START", "The system refused to make it in "},
        {QLockFile::PermissionError, missing, "CANNOT START", "does not exist."},
    };
    for (const Case& c : cases) {
        const acq::Refusal r = acq::SingleCopyRefusal(c.error, c.path);
        EXPECT_EQ(r.title, c.title) << c.error;
        EXPECT_TRUE(r.text.contains(c.says)) << r.text.toStdString();
        if (c.error != QLockFile::LockFailedError) {
            EXPECT_TRUE(r.text.startsWith("The lock file " + c.path + " could not be made."))
                << r.text.toStdString();
            EXPECT_TRUE(r.text.endsWith("This one will now close"));
        }
    }

    // For real: a program folder that is not there refuses the start with
    // the reason, not with a copy that does not run.
    testkit::ScriptedDialogs dialogs;
    testkit::WiredWorkstation ws(scratch.path() + "/gone", &dialogs);
    EXPECT_FALSE(acq::Form_Load(ws));
    ASSERT_EQ(dialogs.boxes.size(), 1u);
    EXPECT_EQ(dialogs.boxes[0].title, "CANNOT START");
    EXPECT_TRUE(dialogs.boxes[0].text.contains(scratch.path() + "/gone does not exist."))
        << dialogs.boxes[0].text.toStdString();
    EXPECT_FALSE(QFileInfo::exists(scratch.path() + "/gone"));
}

TEST(MovedJob, AJobNamedInTheSettingsThatMovedAwayIsNotFoundNotACrash) {
    testkit::ProgramFolder folder;
    struct Case {
        const char* what;
        QString job;
    } cases[] = {
        {"the file moved", folder.file("DB_CUE/WELL_7.DB")},
        {"its whole folder moved", folder.file("usb-stick/WELL_7.DB")},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(
            WriteFile(folder.file("OM_10_config.txt"), "[DB FILE DIR] " + c.job.toUtf8() + "\r\n"));
        testkit::ScriptedDialogs dialogs;
        {
            testkit::WiredWorkstation ws(folder.path(), &dialogs);
            ASSERT_TRUE(acq::Form_Load(ws)) << c.what;
            const QString message = ws.fm_Gas_Chart.txt_message.text();
            EXPECT_TRUE(message.contains(c.job + " File not found")) << message.toStdString();
            EXPECT_EQ(ws.fm_Gas_Chart.txt_db_path.text(), c.job) << c.what;
            // The workstation runs on.
            EXPECT_TRUE(ws.timer("tmr_refresh")->isActive()) << c.what;
            acq::StopWithoutQuestion(ws);
        }
        EXPECT_TRUE(dialogs.boxes.empty()) << c.what;
        EXPECT_TRUE(folder.read("ERR_LOG.TXT").contains(c.job + " File not found")) << c.what;
    }
    // In a folder that is still there, a new blank job at the same name.
    EXPECT_TRUE(folder.exists("DB_CUE/WELL_7.DB"));
    EXPECT_FALSE(folder.exists("usb-stick"));
}
