// The program as a package installs it, started as a user who may not write
// the prefix (nobody): its settings, logs and jobs land in the user's data
// folder and a second start is refused by the lock.
#include "file_bytes.h"
#include "raw_db.h"
#include "simulator.h"

#include <QDir>
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

// A folder that belongs to nobody, closed to everyone else as a home is.
bool GiveTo(const QString& dir, uid_t uid, gid_t gid) {
    return QDir().mkpath(dir) && ::chown(qPrintable(dir), uid, gid) == 0 &&
           ::chmod(qPrintable(dir), 0700) == 0;
}

class Installed : public ::testing::Test {
  protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "switching to user nobody needs root";
        const passwd* pw = getpwnam("nobody");
        const group* gr = getgrnam("nogroup");
        setpriv_ = QStandardPaths::findExecutable("setpriv");
        if (!pw || !gr || setpriv_.isEmpty()) GTEST_SKIP() << "no nobody, nogroup or setpriv";
        uid_ = pw->pw_uid;
        gid_ = gr->gr_gid;
        ASSERT_TRUE(scratch_.isValid());
        // Anyone may pass through to the prefix, as through /usr.
        ::chmod(qPrintable(scratch_.path()), 0755);
        prefix_ = scratch_.path() + "/prefix";
        home_ = scratch_.path() + "/home";
        for (const QString& dir : {home_, home_ + "/run", home_ + "/pictures"})
            ASSERT_TRUE(GiveTo(dir, uid_, gid_)) << dir.toStdString();
        QProcess cmake;
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start(QStandardPaths::findExecutable("cmake"),
                    {"--install", GASCHART_BINARY_DIR, "--prefix", prefix_});
        ASSERT_TRUE(cmake.waitForFinished(300000) && cmake.exitCode() == 0)
            << cmake.readAll().toStdString();
    }

    // The environment of a desktop session of nobody's.
    QProcessEnvironment Session() const {
        QProcessEnvironment env;
        env.insert("PATH", "/usr/local/bin:/usr/bin:/bin");
        env.insert("LANG", "C.UTF-8");
        env.insert("HOME", home_);
        env.insert("XDG_DATA_HOME", home_ + "/data");
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
    QString Refusal() const {
        QProcess p;
        Start(p, {}, Session());
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
    bool StartAlive(QProcess& p) const {
        const QString pictures = home_ + "/pictures";
        Start(p, {"--pictures", pictures}, Session());
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
    uid_t uid_ = 0;
    gid_t gid_ = 0;
};

} // namespace

TEST_F(Installed, KeepsTheUsersFilesInTheDataFolderAndRefusesASecondCopy) {
    const QString folder = home_ + "/data/gaschart";
    const QString bin = prefix_ + "/bin";
    const QStringList shipped = QDir(bin).entryList(QDir::Files | QDir::Hidden);
    for (const char* tool : {"gaschart", "kettlewick-sim", "make-demo-job"})
        EXPECT_TRUE(shipped.contains(tool)) << tool;
    EXPECT_TRUE(QFileInfo(prefix_ + "/share/applications/gaschart.desktop").isFile());
    EXPECT_TRUE(QFileInfo(prefix_ + "/share/icons/hicolor/scalable/apps/gaschart.svg").isFile());

    // Words only: no screen is needed for them.
    {
        QProcessEnvironment env = Session();
        env.remove("QT_QPA_PLATFORM");
        QProcess p;
        Start(p, {"--version"}, env);
        ASSERT_TRUE(p.waitForFinished(30000));
        EXPECT_EQ(p.readAll(), "gaschart " GASCHART_REVISION "\n");
        Start(p, {"--help"}, env);
        ASSERT_TRUE(p.waitForFinished(30000));
        EXPECT_TRUE(p.readAll().contains(("Settings, logs and jobs: " + folder).toUtf8()));
    }

    // First start of the user: the data folder is made and filled.
    QProcess first;
    ASSERT_TRUE(StartAlive(first)) << first.readAll().toStdString();
    const QString job = folder + "/DB_CUE/V11_DEMO.DB";
    for (const char* name : {"gaschart.lock", "WITSconfig_V10.txt", "OMBRI_010_BLANK.db",
                             "V11_DEMO.DB", "DB_CUE/V11_DEMO.DB", "ERR_LOG.TXT"}) {
        const QFileInfo f(folder + "/" + name);
        EXPECT_TRUE(f.isFile() && !f.isSymLink()) << name;
        EXPECT_EQ(f.ownerId(), uid_) << name;
    }

    // A second copy of the same user is refused by the lock.
    const QString twice = Refusal();
    EXPECT_TRUE(twice.contains("OOPS! COPY ALLREADY LOADED: There is already a copy of this "
                               "program running in memory.  This one will now close"))
        << twice.toStdString();
    ASSERT_TRUE(Stop(first)) << first.readAll().toStdString();
    const QString settings = QString::fromLatin1(testkit::ReadFile(folder + "/OM_10_config.txt"));
    EXPECT_TRUE(settings.contains("[DB FILE DIR] " + job)) << settings.toStdString();
    EXPECT_EQ(testkit::RawDb(job, testkit::RawDb::Access::ReadOnly).integrity(), "ok");
    // Nothing of the user's in the program's folder.
    EXPECT_EQ(QDir(bin).entryList(QDir::Files | QDir::Hidden), shipped);
    EXPECT_FALSE(QFileInfo::exists(bin + "/DB_CUE"));
}
