// A widget and its model control stay in step both ways, and the operator's
// acts reach the handlers given at binding.
#include "operator.h"
#include "ui/binder.h"
#include "ui/colors.h"
#include "ui/option_group.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <gtest/gtest.h>
#include <memory>

using forms::Control;
namespace color = forms::color;

namespace {

// A parent for the widgets of one case, so visibility means what it does on
// screen.
struct Host {
    QWidget window;
    Host() { window.show(); }
};

} // namespace

TEST(Binder, ButtonFollowsItsControlAndAPressReachesTheHandler) {
    Host host;
    Control c("cmd_comm1", "Kettlewick Disconnected");
    c.setBackColor(color::Red);
    int clicks = 0;
    auto* b = new QPushButton(&host.window);
    ui::bind(b, c, {.click = [&] { ++clicks; }});

    EXPECT_EQ(b->objectName(), "cmd_comm1");
    EXPECT_EQ(b->text(), "Kettlewick Disconnected");
    EXPECT_EQ(b->palette().color(QPalette::Button), QColor(255, 0, 0));
    c.setCaption("Connected: 61 TCP 60%");
    EXPECT_EQ(b->text(), "Connected: 61 TCP 60%");
    // The toolkit's own face again, and grey, the classic face, with it.
    const QPalette theme = host.window.palette();
    c.setBackColor(color::Button);
    EXPECT_EQ(b->palette().color(QPalette::Button), theme.color(QPalette::Button));
    c.setBackColor(color::Red);
    c.setBackColor(color::Grey);
    EXPECT_EQ(b->palette().color(QPalette::Button), theme.color(QPalette::Button));
    EXPECT_EQ(b->palette().color(QPalette::ButtonText), theme.color(QPalette::ButtonText));

    c.setToolTip("link");
    c.setEnabled(false);
    EXPECT_EQ(b->toolTip(), "link");
    EXPECT_FALSE(b->isEnabled());
    c.setEnabled(true);
    c.setVisible(false);
    EXPECT_FALSE(b->isVisible());
    c.setVisible(true);
    EXPECT_TRUE(b->isVisible());

    b->click();
    b->click();
    EXPECT_EQ(clicks, 2);
}

TEST(Binder, TextNeverVanishesIntoItsGround) {
    Host host;
    Control c("lbl_bit_depth");
    auto* l = new QLabel(&host.window);
    ui::bind(l, c);
    // Black on black stays readable.
    c.setBackColor(color::Black);
    c.setForeColor(color::Black);
    EXPECT_TRUE(l->autoFillBackground());
    EXPECT_EQ(l->palette().color(QPalette::WindowText), QColor(Qt::white));

    // A dark curve colour on a dark screen keeps its hue and is lifted.
    QWidget night;
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x2b, 0x2d, 0x30));
    night.setPalette(dark);
    Control gas("lbl_c2");
    auto* c2 = new QLabel(&night);
    ui::bind(c2, gas);
    gas.setForeColor(0xFF0000); // blue
    const QColor shown = c2->palette().color(QPalette::WindowText);
    EXPECT_EQ(shown.hslHue(), 240);
    EXPECT_GE(shown.lightness(), 150);
}

TEST(Binder, TextBoxTypingEnterAndLeavingReachTheModelAndTheHandlers) {
    Host host;
    Control c("txt_refresh_timer");
    c.setText("180");
    QStringList calls;
    auto* e = new QLineEdit(&host.window);
    ui::bind(e, c,
             {.enter = [&] { calls << "enter:" + c.text(); },
              .commit = [&] { calls << "commit:" + c.text(); },
              .change = [&] { calls << "change:" + c.text(); }});
    EXPECT_EQ(e->text(), "180");

    // The program writes: the box shows it, and no handler runs.
    c.setText("10");
    EXPECT_EQ(e->text(), "10");
    EXPECT_TRUE(calls.isEmpty());

    e->selectAll();
    uitest::type(e, "5");
    EXPECT_EQ(c.text(), "5");
    EXPECT_EQ(calls, QStringList({"change:5"}));
    calls.clear();
    uitest::enter(e);
    EXPECT_TRUE(calls.contains("enter:5"));
    EXPECT_TRUE(calls.contains("commit:5"));

    calls.clear();
    uitest::type(e, "0");
    uitest::leave(e);
    EXPECT_EQ(c.text(), "50");
    EXPECT_TRUE(calls.contains("commit:50")) << calls.join(", ").toStdString();
    EXPECT_FALSE(calls.contains("enter:50"));
}

TEST(Binder, CheckBoxOptionAndOptionGroupCarryTheirValue) {
    Host host;
    Control box("ck_Use_TCP", "Use Ethernet");
    int boxClicks = 0;
    auto* cb = new QCheckBox(&host.window);
    ui::bind(cb, box, {.click = [&] { ++boxClicks; }});
    EXPECT_EQ(cb->text(), "Use Ethernet");
    EXPECT_FALSE(cb->isChecked());
    box.setValue(1);
    EXPECT_TRUE(cb->isChecked());
    EXPECT_EQ(boxClicks, 0);
    cb->click();
    EXPECT_EQ(box.value(), 0);
    EXPECT_EQ(boxClicks, 1);

    // Two single options in one frame: one choice.
    Control a("op_lag_calc_Time", "Time"), s("op_lag_calc_Str", "Strokes");
    a.setValue(1);
    int chosen = 0;
    auto* frame = new QGroupBox(&host.window);
    auto* ra = new QRadioButton(frame);
    auto* rs = new QRadioButton(frame);
    ui::bind(ra, a, {.click = [&] { chosen = 1; }});
    ui::bind(rs, s, {.click = [&] { chosen = 2; }});
    EXPECT_TRUE(ra->isChecked());
    rs->click();
    EXPECT_EQ(s.value(), 1);
    EXPECT_EQ(a.value(), 0);
    EXPECT_EQ(chosen, 2);
    // The program chooses: the screen follows, no handler.
    chosen = 0;
    a.setValue(1);
    s.setValue(0);
    EXPECT_TRUE(ra->isChecked());
    EXPECT_FALSE(rs->isChecked());
    EXPECT_EQ(chosen, 0);

    // An option group is one control: items are the captions, value the choice.
    Control group("op_delim");
    for (const char* t : {"Tab", "Comma", "Space", "Using..."}) group.addItem(t);
    group.setValue(0);
    int groupClicks = 0;
    auto* og = new ui::OptionGroup(&host.window);
    ui::bind(og, group, {.click = [&] { ++groupClicks; }});
    ASSERT_EQ(og->count(), 4);
    EXPECT_EQ(og->button(2)->text(), "Space");
    EXPECT_EQ(og->button(2)->objectName(), "op_delim_2");
    EXPECT_EQ(og->chosen(), 0);
    group.setValue(3);
    EXPECT_EQ(og->chosen(), 3);
    og->button(1)->click();
    EXPECT_EQ(group.value(), 1);
    EXPECT_EQ(groupClicks, 1);
    group.setValue(-1);
    EXPECT_EQ(og->chosen(), -1);
}

TEST(Binder, ProgressListFrameLabelAndTabsFollowTheModel) {
    Host host;
    Control bar("pgbar");
    auto* pb = new QProgressBar(&host.window);
    ui::bind(pb, bar);
    bar.setRange(0, 100);
    bar.setValue(40);
    EXPECT_EQ(pb->value(), 40);
    bar.setRange(0, 20);
    EXPECT_EQ(pb->maximum(), 20);
    EXPECT_EQ(pb->value(), 20);

    Control list("wits_info");
    auto* lw = new QListWidget(&host.window);
    ui::bind(lw, list);
    list.addItem("0108 Bit Depth 5000");
    list.addItem("0110 Hole Depth 5010");
    ASSERT_EQ(lw->count(), 2);
    EXPECT_EQ(lw->item(1)->text(), "0110 Hole Depth 5010");
    list.clearItems();
    EXPECT_EQ(lw->count(), 0);

    Control frame("fra_bit_depth", "Bit Depth");
    auto* gb = new QGroupBox(&host.window);
    ui::bind(gb, frame);
    frame.setCaption("Bit Depth  OFF BOTTOM");
    EXPECT_EQ(gb->title(), "Bit Depth  OFF BOTTOM");

    Control label("lbl_GasUnits");
    auto* l = new QLabel(&host.window);
    ui::bind(l, label);
    label.setCaption("123.4");
    EXPECT_EQ(l->text(), "123.4");
    // A label the program writes through its text shows that.
    Control other("lbl_AutoLas");
    auto* l2 = new QLabel(&host.window);
    ui::bind(l2, other);
    other.setText("600");
    EXPECT_EQ(l2->text(), "600");

    Control tabs("SSTab1");
    for (const char* t : {"Zone 1", "Zone 2"}) tabs.addItem(t);
    auto* tw = new QTabWidget(&host.window);
    tw->addTab(new QWidget, "?");
    tw->addTab(new QWidget, "?");
    ui::bind(tw, tabs);
    EXPECT_EQ(tw->tabText(1), "Zone 2");
    tabs.setValue(1);
    EXPECT_EQ(tw->currentIndex(), 1);
    tw->setCurrentIndex(0);
    EXPECT_EQ(tabs.value(), 0);
}

TEST(Binder, TerminalShowsTheLogKeepsTheNewestLineInViewAndSendsKeysUnechoed) {
    Host host;
    Control c("text_window");
    QString sent;
    auto* t = new QPlainTextEdit(&host.window);
    t->setReadOnly(true);
    t->resize(300, 80);
    ui::bind(t, c, {.key = [&](QChar ch) { sent += ch; }});

    QString log;
    for (int i = 0; i < 50; ++i) {
        log += "*1234,05/01/2024,12:00:" + QString::number(i) + "\r\n";
        c.setText(log);
    }
    EXPECT_EQ(t->toPlainText(), QString(log).replace("\r\n", "\n"));
    EXPECT_EQ(t->textCursor().position(), t->document()->characterCount() - 1);
    // A cut log (the model keeps its tail) is shown as cut.
    c.setText(log.right(100));
    EXPECT_EQ(t->toPlainText(), log.right(100).replace("\r\n", "\n"));

    const QString before = t->toPlainText();
    uitest::type(t, "?");
    uitest::enter(t);
    EXPECT_EQ(sent, "?\r");
    EXPECT_EQ(t->toPlainText(), before);
    EXPECT_EQ(c.text(), log.right(100));
}

TEST(Binder, EditableTextAreaWritesBackWithTheProgramsLineEnds) {
    Host host;
    Control c("txt_message");
    auto* t = new QPlainTextEdit(&host.window);
    int commits = 0;
    ui::bind(t, c, {.commit = [&] { ++commits; }});
    c.setText("Use database version OMBRI_DB_010\r\nSoftware Version: 11");
    EXPECT_EQ(t->toPlainText(), "Use database version OMBRI_DB_010\nSoftware Version: 11");
    t->moveCursor(QTextCursor::End);
    uitest::enter(t);
    uitest::type(t, "Gas show");
    EXPECT_EQ(c.text(), "Use database version OMBRI_DB_010\r\nSoftware Version: 11\r\nGas show");
    uitest::leave(t);
    EXPECT_EQ(commits, 1);
}

TEST(Binder, ArraysAreNamedByIndexAndAWidgetMayGoBeforeItsControl) {
    Control c("txt_data");
    c.setIndex(6);
    EXPECT_EQ(ui::objectNameOf(c), "txt_data_6");
    Control single("txt_data");
    EXPECT_EQ(ui::objectNameOf(single), "txt_data");

    auto* e = new QLineEdit;
    ui::bind(e, c);
    EXPECT_EQ(e->objectName(), "txt_data_6");
    delete e;
    // The control lives on and changes; the gone widget is left alone.
    c.setText("1550");
    c.setVisible(false);
    EXPECT_EQ(c.text(), "1550");
}

TEST(Binder, AHandlerThatThrowsDoesNotTakeTheScreenDown) {
    Host host;
    Control c("cmd_redraw_chart", "Redraw Chart");
    auto* b = new QPushButton(&host.window);
    int after = 0;
    ui::bind(b, c, {.click = [&] {
                 ++after;
                 throw std::runtime_error("no chart");
             }});
    EXPECT_NO_THROW(b->click());
    EXPECT_NO_THROW(b->click());
    EXPECT_EQ(after, 2);
}

TEST(Binder, ADoubleClickOnATextAreaReachesItsHandlerAndASingleOneDoesNot) {
    Host host;
    Control c("txt_Raw_WITS_Out");
    auto* t = new QPlainTextEdit(&host.window);
    t->setReadOnly(true);
    int clicks = 0;
    ui::bind(t, c, {.dblClick = [&] { ++clicks; }});
    QWidget* area = t->viewport();
    const QPointF at(5, 5);
    auto send = [&](QEvent::Type type, Qt::MouseButton b) {
        QMouseEvent e(type, at, area->mapToGlobal(at), b, b, Qt::NoModifier);
        QCoreApplication::sendEvent(area, &e);
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::LeftButton);
    EXPECT_EQ(clicks, 0);
    send(QEvent::MouseButtonDblClick, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    send(QEvent::MouseButtonDblClick, Qt::RightButton);
    EXPECT_EQ(clicks, 1);
}
