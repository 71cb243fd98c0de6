// The real dialogs: what the program asks reaches the box as asked, and the
// operator's answer comes back.
#include "ui/widget_dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

// Answers the dialog of type D that comes up, from inside its own loop. A
// file dialog may still be reading its folder and let an early answer pass,
// so the answer is given again on each tick until the dialog has gone.
template <class D> void answerWhenShown(std::function<void(D*)> answer) {
    // Owned by the application, so a poll the test outlives is freed with it.
    auto* poll = new QTimer(QCoreApplication::instance());
    poll->setInterval(20);
    auto seen = std::make_shared<QPointer<D>>();
    QObject::connect(poll, &QTimer::timeout, [poll, answer, seen] {
        const bool answered = poll->property("answered").toBool();
        if (answered && (!*seen || !(*seen)->isVisible())) {
            // Gone: this answer is done, the next dialog is another's.
            poll->stop();
            poll->deleteLater();
            return;
        }
        if (!answered)
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* d = qobject_cast<D*>(w); d && d->isVisible()) *seen = d;
        if (!*seen) return;
        poll->setProperty("answered", true);
        answer(*seen);
    });
    poll->start();
}

// The operator types the name into the dialog's name box and accepts.
// (selectFile leaves the box alone while it has the focus.)
void typeAndAccept(QFileDialog* d, const QString& name) {
    if (auto* box = d->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) box->setText(name);
    static_cast<QDialog*>(d)->accept();
}

} // namespace

TEST(Dialogs, MessageAndColourBoxesShowWhatIsAskedAndGiveTheAnswer) {
    ui::WidgetDialogs dialogs;
    QString title, text;
    answerWhenShown<QMessageBox>([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        box->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(dialogs.MsgBox("Are you sure you want to exit?", platform::Buttons::YesNo,
                             "EXIT PROGRAM?", platform::Icon::Question),
              platform::Answer::No);
    EXPECT_EQ(title, "EXIT PROGRAM?");
    EXPECT_EQ(text, "Are you sure you want to exit?");

    answerWhenShown<QMessageBox>([](QMessageBox* box) {
        EXPECT_EQ(box->button(QMessageBox::No), nullptr);
        box->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(dialogs.MsgBox("There is already a copy of this program\r\nrunning in memory.",
                             platform::Buttons::Ok, "OOPS! COPY ALLREADY LOADED",
                             platform::Icon::Stop),
              platform::Answer::Ok);

    // The colour box starts on the colour; the choice has red in the low byte.
    QColor start;
    answerWhenShown<QColorDialog>([&](QColorDialog* d) {
        title = d->windowTitle();
        start = d->currentColor();
        d->setCurrentColor(QColor(0, 0, 255));
        static_cast<QDialog*>(d)->accept();
    });
    EXPECT_EQ(dialogs.PickColor("SELECT New Color", 33023), 0xFF0000);
    EXPECT_EQ(title, "SELECT New Color");
    EXPECT_EQ(start, QColor(255, 128, 0));

    answerWhenShown<QColorDialog>([](QColorDialog* d) { d->reject(); });
    EXPECT_EQ(dialogs.PickColor("SELECT New Color", 255), std::nullopt);
}

TEST(Dialogs, FileDialogsStartInTheFolderWithTheProgramsFilterAndReturnTheChoice) {
    QTemporaryDir dir;
    QFile job(dir.filePath("DEMO.db"));
    ASSERT_TRUE(job.open(QIODevice::WriteOnly));
    job.close();
    ui::WidgetDialogs dialogs;
    const QString filter = "Data Base File (*.DB) | *.db;*.DB | All Files (*.*) | *.*";

    QStringList filters;
    QString folder, title;
    answerWhenShown<QFileDialog>([&](QFileDialog* d) {
        title = d->windowTitle();
        filters = d->nameFilters();
        folder = d->directory().absolutePath();
        typeAndAccept(d, dir.filePath("DEMO.db"));
    });
    // The folder as the program writes it, with a separator at the end.
    const QString chosen = dialogs.OpenFile("Open Data Base", filter, dir.path() + "\\");
    EXPECT_EQ(chosen, dir.filePath("DEMO.db"));
    EXPECT_EQ(title, "Open Data Base");
    EXPECT_EQ(filters, QStringList({"Data Base File (*.db *.DB)", "All Files (*.*)"}));
    EXPECT_EQ(folder, QDir(dir.path()).absolutePath());

    answerWhenShown<QFileDialog>([](QFileDialog* d) { d->reject(); });
    EXPECT_EQ(dialogs.SaveFile("Save Data Base As", filter, dir.path()), QString());

    answerWhenShown<QFileDialog>([&](QFileDialog* d) {
        EXPECT_EQ(d->acceptMode(), QFileDialog::AcceptSave);
        typeAndAccept(d, dir.filePath("NEW_JOB.db"));
    });
    EXPECT_EQ(dialogs.SaveFile("Save Data Base As", filter, dir.path()),
              dir.filePath("NEW_JOB.db"));

    // Odd spacing in a list, a list of words alone, a folder in the older form.
    EXPECT_EQ(ui::dialogFilters("LAS file (*.LAS)|*.las; *.LAS;"),
              QStringList({"LAS file (*.las *.LAS)"}));
    EXPECT_EQ(ui::dialogFilters("Just words"), QStringList());
    EXPECT_EQ(ui::dialogPath("C:\\gas\\DB_CUE\\"), "C:/gas/DB_CUE");
}
