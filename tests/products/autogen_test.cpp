// Generation control: the interval box, the countdown and the names of a run.
#include "products/autogen.h"
#include "products/names.h"
#include "products_fixture.h"

#include <QTimer>
#include <unistd.h>

using productstest::ProductsTest;

TEST_F(ProductsTest, TheIntervalBoxKeepsTheMinimumAndSwitchesTheTimer) {
    auto& s = ws.fm_setup;
    QTimer* timer = ws.timer("tmr_autogen");
    ASSERT_NE(timer, nullptr);
    struct Case {
        const char* typed;
        const char* shown;
        double seconds;
        bool running;
    } cases[] = {{"9.99", "10", 600, true}, {"-5", "0", 0, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        s.txt_autogen_dir.setBackColor(forms::color::Red);
        s.txt_autogen_las.setText(c.typed);
        products::txt_autogen_las_LostFocus(ws);
        EXPECT_EQ(s.txt_autogen_las.text(), c.shown);
        EXPECT_EQ(ws.products.autogen_seconds_left, c.seconds);
        EXPECT_EQ(timer->isActive(), c.running);
        if (!c.running) {
            EXPECT_EQ(s.txt_autogen_dir.backColor(), forms::color::White);
        }
    }
    timer->stop();

    // A last 48 hours box is on only with its main box.
    s.ck_gen_las48_file.setChecked(true);
    s.ck_gen_xls_file.setChecked(true);
    s.ck_gen_xls48_file.setChecked(true);
    products::ck_gen_file_Click(ws);
    EXPECT_FALSE(s.ck_gen_las48_file.checked());
    EXPECT_TRUE(s.ck_gen_xls48_file.checked());
}

TEST_F(ProductsTest, TheCountdownRunsTheFilesIntoTheAutogenFolder) {
    smallJob();
    auto& s = ws.fm_setup;
    s.txt_autogen_dir.setText(out);
    s.txt_autogenFilename.setText("rig.7 well");
    s.ck_gen_las_file.setChecked(true);
    s.ck_gen_xls_file.setChecked(true);
    s.ck_time_based_las.setChecked(true);
    s.txt_autogen_las.setText("10");
    products::txt_autogen_las_LostFocus(ws);
    ws.timer("tmr_autogen")->stop();
    ws.products.autogen_seconds_left = 2;
    products::tmr_autogen_Timer(ws);
    EXPECT_EQ(s.lbl_AutoLas.caption(), "1");
    EXPECT_FALSE(exists("rig.7 well.LAS"));
    products::tmr_autogen_Timer(ws);
    EXPECT_EQ(ws.products.autogen_seconds_left, 600) << "reloaded before the run";
    // The base name is cut at the last ".", so the dot in the name stays.
    for (const char* f :
         {"rig.7 well.LAS", "rig.7 well_GasOnly.las", "rig.7 well.XLS", "rig.7 well_TIME.LAS"})
        EXPECT_TRUE(exists(f)) << f;
    EXPECT_FALSE(ws.fm_help.form.visible()) << "an automatic run hides the box";
    EXPECT_TRUE(ws.fm_help.txt_help.text().endsWith("LAS/XLS file generation Complete.\r\n"));

    // Only the time file: the name step still runs.
    QDir(out).removeRecursively();
    QDir().mkpath(out);
    s.ck_gen_las_file.setChecked(false);
    s.ck_gen_xls_file.setChecked(false);
    ws.products.autogen_seconds_left = 1;
    products::tmr_autogen_Timer(ws);
    EXPECT_EQ(QDir(out).entryList(QDir::Files), QStringList{"rig.7 well_TIME.LAS"});

    // A folder that is not there: the message, the red box, no files.
    s.txt_autogen_dir.setText(out + "/gone");
    ws.products.autogen_seconds_left = 1;
    products::tmr_autogen_Timer(ws);
    EXPECT_EQ(s.txt_autogen_dir.backColor(), forms::color::Red);
    EXPECT_EQ(ws.fm_help.lbl_help.caption(), "Auto Generate LAS/XLS directory does not exist");
    EXPECT_EQ(ws.products.autogen_seconds_left, 600) << "it tries again at the next reload";

    // The "/" of the short date in the name: the file cannot be made.
    s.txt_autogen_dir.setText(out);
    s.ch_autogen_wDate.setChecked(true);
    ws.products.autogen_seconds_left = 1;
    products::tmr_autogen_Timer(ws);
    EXPECT_EQ(logged("Create Time Based Las Filename Err: Path not found: " + out +
                     "/rig.7 well 11/02/2026_TIME.LAS"),
              1);
}

TEST_F(ProductsTest, TheHandMadeRunNamesItsFilesFromTheDialog) {
    smallJob();
    auto& s = ws.fm_setup;
    s.ck_gen_las_file.setChecked(true);
    s.ck_gen_xls_file.setChecked(true);
    // Only the dialog's own ".las" is taken off, in that case alone.
    struct Case {
        QString chosen;
        QStringList files;
    } cases[] = {
        {outFile("a.las"), {"a.XLS", "a.las", "a_GasOnly.las"}},
        {outFile("c.Las"), {"c.Las.LAS", "c.Las.XLS", "c.Las_GasOnly.las"}},
    };
    for (const Case& c : cases) {
        QDir(out).removeRecursively();
        QDir().mkpath(out);
        dialogs.files = {c.chosen};
        products::cmd_gen_log_files_Click(ws);
        QStringList got = QDir(out).entryList(QDir::Files, QDir::Name);
        EXPECT_EQ(got, c.files);
        EXPECT_TRUE(ws.fm_help.form.visible()) << "a run by hand leaves the box up";
    }
    // Cancel: nothing.
    dialogs.files = {""};
    products::cmd_gen_log_files_Click(ws);
    EXPECT_EQ(QDir(out).entryList(QDir::Files).size(), 3);
}

TEST_F(ProductsTest, AnUnwritableFolderLeavesTheJobAndThePreviousFilesAlone) {
    smallJob();
    auto& s = ws.fm_setup;
    s.ck_gen_las_file.setChecked(true);
    s.ck_gen_xls_file.setChecked(true);
    s.ck_time_based_las.setChecked(true);
    // The super-user writes anywhere a permission bit forbids: the kernel's
    // own folder of the process is what refuses everyone.
    QString target = out;
    if (geteuid() == 0) {
        target = "/proc/self";
    } else {
        QFile(outFile("Autogen.LAS")).open(QIODevice::WriteOnly);
        QFile(outFile("Autogen.LAS")).setPermissions(QFileDevice::ReadOwner);
        QFile::setPermissions(out, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    }
    const QByteArray before = testkit::ReadFile(job);
    s.txt_autogen_dir.setText(target);
    ws.products.autogen_seconds_left = 1;
    products::tmr_autogen_Timer(ws);
    QFile::setPermissions(out,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    for (const char* prefix : {"Create Las Filename Err: ", "Create XLS Filename Err: ",
                               "Create Time Based Las Filename Err: "}) {
        const QString log = folder.read("ERR_LOG.TXT");
        EXPECT_TRUE(log.contains(prefix + QString("Permission denied: ") + target) ||
                    log.contains(prefix + QString("Path/File access error: ") + target))
            << prefix << log.toStdString();
    }
    EXPECT_EQ(testkit::ReadFile(job), before);
    EXPECT_FALSE(ws.db.Gdb_busy);
    EXPECT_FALSE(ws.products.autogen_running);
}

TEST(ProductNames, TheBaseNameIsCutAtTheLastDot) {
    struct Case {
        const char* name;
        const char* base;
    } cases[] = {
        // The search runs over the whole path: a dot in a folder counts.
        {"/jobs/rig.7/Autogen", "/jobs/rig"},
        {"noextension", "noextension"},
    };
    for (const Case& c : cases) EXPECT_EQ(products::BaseName(c.name), c.base) << c.name;
}
