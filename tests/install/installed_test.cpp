// The program as a package installs it: `cmake --install` into a prefix of
// its own, started as a user who may not write the prefix (nobody), with a
// home of that user's own. Its settings, logs and jobs must land in the
// user's data folder, a second start must be refused by the lock, a lock
// that cannot be made must say so, and an update must keep the user's files.
#include "raw_db.h"
#include "simulator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Account {
    uid_t uid = 0;
    gid_t gid = 0;
};

// A folder that belongs to nobody, closed to everyone else as a home is.
bool GiveTo(const QString& dir, const Account& who, mode_t mode = 0700) {
    return QDir().mkpath(dir) && ::chown(qPrintable(dir), who.uid, who.gid) == 0 &&
           ::chmod(qPrintable(dir), mode) == 0;
}

QByteArray Read(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

class Installed : public ::testing::Test {
  protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "switching to user nobody needs root";
        const passwd* pw = getpwnam("nobody");
        const group* gr = getgrnam("nogroup");
        setpriv_ = QStandardPaths::findExecutable("setpriv");
        if (!pw || !gr || setpriv_.isEmpty()) GTEST_SKIP() << "no nobody, nogroup or setpriv";
        nobody_ = {pw->pw_uid, gr->gr_gid};
        ASSERT_TRUE(scratch_.isValid());
        // Anyone may pass through to the prefix, as through /usr.
        ::chmod(qPrintable(scratch_.path()), 0755);
        prefix_ = scratch_.path() + "/prefix";
        home_ = scratch_.path() + "/home";
        ASSERT_TRUE(GiveTo(home_, nobody_));
        ASSERT_TRUE(GiveTo(home_ + "/run", nobody_));
        ASSERT_TRUE(Install());
    }

    bool Install() {
        QProcess cmake;
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start(QStandardPaths::findExecutable("cmake"),
                    {"--install", GASCHART_BINARY_DIR, "--prefix", prefix_});
        const bool done = cmake.waitForFinished(300000) && cmake.exitCode() == 0;
        if (!done) ADD_FAILURE() << cmake.readAll().toStdString();
        return done;
    }

    // The environment of a desktop session of nobody's; `data` is where its
    // data folders go.
    QProcessEnvironment Session(const QString& data) const {
        QProcessEnvironment env;
        env.insert("PATH", "/usr/local/bin:/usr/bin:/bin");
        env.insert("LANG", "C.UTF-8");
        env.insert("HOME", home_);
        env.insert("XDG_DATA_HOME", data);
        env.insert("XDG_CONFIG_HOME", home_ + "/config");
        env.insert("XDG_CACHE_HOME", home_ + "/cache");
        env.insert("XDG_RUNTIME_DIR", home_ + "/run");
        env.insert("QT_QPA_PLATFORM", "offscreen");
        return env;
    }

    void Start(QProcess& p, const QStringList& args, const QProcessEnvironment& env) const {
        p.setProcessEnvironment(env);
        p.setProcessChannelMode(QProcess::MergedChannels);
        p.start(setpriv_, QStringList{"--reuid=nobody", "--regid=nogroup", "--clear-groups",
                                      prefix_ + "/bin/gaschart"} +
                              args);
    }

    // What a start that never comes up says: it stands in its stop box
    // until someone reads it, so it is ended once it has spoken.
    QString Refusal(const QProcessEnvironment& env) const {
        QProcess p;
        Start(p, {}, env);
        QString said;
        testkit::PumpUntil(60000, [&] {
            p.waitForReadyRead(50);
            said += QString::fromUtf8(p.readAll());
            return said.contains("will now close") || p.state() == QProcess::NotRunning;
        });
        p.kill();
        p.waitForFinished(10000);
        return said;
    }

    // A normal start, alive once its main screen has been pictured.
    bool StartAlive(QProcess& p, const QString& pictures) const {
        if (!GiveTo(pictures, nobody_)) return false;
        Start(p, {"--pictures", pictures}, Session(data_));
        return p.waitForStarted(10000) &&
               testkit::PumpUntil(90000,
                                  [&] {
                                      return p.state() == QProcess::NotRunning ||
                                             QFileInfo::exists(pictures + "/fm_Gas_Chart.png");
                                  }) &&
               p.state() == QProcess::Running;
    }

    // The stop of a shut-down; the workstation saves and closes.
    static bool Stop(QProcess& p) {
        p.terminate();
        return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit &&
               p.exitCode() == 0;
    }

    QTemporaryDir scratch_;
    QString setpriv_, prefix_, home_;
    QString data_; // XDG_DATA_HOME of the normal starts
    Account nobody_;
};

} // namespace

TEST_F(Installed, KeepsTheUsersFilesInTheDataFolderRefusesASecondCopyAndSurvivesAnUpdate) {
    data_ = home_ + "/data";
    const QString folder = data_ + "/gaschart";
    const QString bin = prefix_ + "/bin";
    const QStringList shipped = QDir(bin).entryList(QDir::Files | QDir::Hidden);
    EXPECT_TRUE(shipped.contains("gaschart"));
    EXPECT_TRUE(shipped.contains("kettlewick-sim"));
    EXPECT_TRUE(shipped.contains("make-demo-job"));
    EXPECT_TRUE(QFileInfo(prefix_ + "/share/applications/gaschart.desktop").isFile());
    EXPECT_TRUE(QFileInfo(prefix_ + "/share/icons/hicolor/scalable/apps/gaschart.svg").isFile());

    // Words only: no screen is needed for them.
    {
        QProcessEnvironment env = Session(data_);
        env.remove("QT_QPA_PLATFORM");
        QProcess p;
        Start(p, {"--version"}, env);
        ASSERT_TRUE(p.waitForFinished(30000));
        EXPECT_EQ(p.exitCode(), 0);
        EXPECT_EQ(p.readAll(), "gaschart " GASCHART_REVISION "\n");
        Start(p, {"--help"}, env);
        ASSERT_TRUE(p.waitForFinished(30000));
        EXPECT_EQ(p.exitCode(), 0);
        const QString help = QString::fromUtf8(p.readAll());
        EXPECT_TRUE(help.contains("Settings, logs and jobs: " + folder)) << help.toStdString();
        EXPECT_TRUE(help.contains("--pictures <folder>")) << help.toStdString();
    }

    // First start of the user: the data folder is made and filled.
    QProcess first;
    ASSERT_TRUE(StartAlive(first, home_ + "/pictures-1")) << first.readAll().toStdString();
    const QString job = folder + "/DB_CUE/V11_DEMO.DB";
    for (const char* name : {"gaschart.lock", "WITSconfig_V10.txt", "OMBRI_010_BLANK.db",
                             "V11_DEMO.DB", "DB_CUE/V11_DEMO.DB", "ERR_LOG.TXT"}) {
        const QFileInfo f(folder + "/" + name);
        EXPECT_TRUE(f.isFile() && !f.isSymLink()) << name;
        EXPECT_EQ(f.ownerId(), nobody_.uid) << name;
    }
    EXPECT_TRUE(Read(folder + "/ERR_LOG.TXT").contains("Use database version OMBRI_DB_010"));
    EXPECT_GT(testkit::RawDb(job, testkit::RawDb::Access::ReadOnly).rows(), 1000);

    // A second copy of the same user is refused by the lock...
    const QString twice = Refusal(Session(data_));
    EXPECT_TRUE(twice.contains("OOPS! COPY ALLREADY LOADED: There is already a copy of this "
                               "program running in memory.  This one will now close"))
        << twice.toStdString();
    // ...and a data folder this user can't write says so, not that a copy runs.
    const QString locked = scratch_.path() + "/locked";
    ASSERT_TRUE(GiveTo(locked + "/gaschart", Account{0, 0}, 0755));
    const QString cannot = Refusal(Session(locked));
    EXPECT_TRUE(cannot.contains("CANNOT START: The lock file " + locked +
                                "/gaschart/gaschart.lock could not be made. This user may not "
                                "write in " +
                                locked + "/gaschart."))
        << cannot.toStdString();

    ASSERT_TRUE(Stop(first)) << first.readAll().toStdString();
    const QString settings = QString::fromLatin1(Read(folder + "/OM_10_config.txt"));
    EXPECT_TRUE(settings.contains("[DB FILE DIR] " + job)) << settings.toStdString();
    EXPECT_EQ(testkit::RawDb(job, testkit::RawDb::Access::ReadOnly).integrity(), "ok");
    // Nothing of the user's in the program's folder.
    EXPECT_EQ(QDir(bin).entryList(QDir::Files | QDir::Hidden), shipped);
    EXPECT_FALSE(QFileInfo::exists(bin + "/DB_CUE"));

    // The user moves on to a job of their own, which has since moved away,
    // and edits the WITS item names. Then an update of the program ships
    // new item names.
    QByteArray mine = Read(folder + "/OM_10_config.txt");
    const QString well = folder + "/DB_CUE/WELL_7.DB";
    mine.replace(job.toUtf8(), well.toUtf8());
    {
        QFile config(folder + "/OM_10_config.txt");
        ASSERT_TRUE(config.open(QIODevice::WriteOnly | QIODevice::Truncate));
        config.write(mine);
        QFile names(folder + "/WITSconfig_V10.txt");
        ASSERT_TRUE(names.open(QIODevice::Append));
        names.write("0199 the user's own item\r\n");
    }
    const QByteArray userNames = Read(folder + "/WITSconfig_V10.txt");
    const QByteArray firstLog = Read(folder + "/ERR_LOG.TXT");
    {
        QFile shippedNames(prefix_ + "/share/gaschart/WITSconfig_V10.txt");
        ASSERT_TRUE(shippedNames.open(QIODevice::Append));
        shippedNames.write("0198 an item of the new version\r\n");
    }
    ASSERT_TRUE(Install());

    QProcess again;
    ASSERT_TRUE(StartAlive(again, home_ + "/pictures-2")) << again.readAll().toStdString();
    ASSERT_TRUE(Stop(again)) << again.readAll().toStdString();
    EXPECT_EQ(Read(folder + "/WITSconfig_V10.txt"), userNames);
    const QByteArray log = Read(folder + "/ERR_LOG.TXT");
    EXPECT_TRUE(log.startsWith(firstLog)) << "the log of the first day was lost";
    EXPECT_TRUE(log.contains((well + " File not found").toUtf8())) << log.toStdString();
    EXPECT_TRUE(Read(folder + "/OM_10_config.txt").contains(("[DB FILE DIR] " + well).toUtf8()));
    EXPECT_TRUE(QFileInfo(well).isFile());
    EXPECT_GT(testkit::RawDb(job, testkit::RawDb::Access::ReadOnly).rows(), 1000)
        << "the demonstration job was replaced";
}
