// A widget and its model control stay in step both ways, and the operator's
// acts reach the handlers given at binding.
#include "operator.h"
#include "ui/binder.h"
#include "ui/colors.h"
#include "ui/option_group.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <gtest/gtest.h>

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

// The caption, the visibility and the press are the screens' (views_test).
TEST(Binder, ButtonsAndLabelsTakeTheirColourAndTextNeverVanishesIntoItsGround) {
    Host host;
    Control c("cmd_comm1", "Kettlewick Disconnected");
    c.setBackColor(color::Red);
    auto* b = new QPushButton(&host.window);
    ui::bind(b, c);
    EXPECT_EQ(b->palette().color(QPalette::Button), QColor(255, 0, 0));
    c.setEnabled(false);
    EXPECT_FALSE(b->isEnabled());

    Control depth("lbl_bit_depth");
    auto* l = new QLabel(&host.window);
    ui::bind(l, depth);
    depth.setBackColor(color::Black);
    depth.setForeColor(color::Black);
    EXPECT_EQ(l->palette().color(QPalette::WindowText), QColor(Qt::white));
}

// Typing and Enter reach their handlers in views_test.
TEST(Binder, TextBoxCommitsOnLeavingAndNotOnTheProgramsWrites) {
    Host host;
    Control c("txt_refresh_timer");
    QStringList calls;
    auto* e = new QLineEdit(&host.window);
    ui::bind(e, c,
             {.enter = [&] { calls << "enter:" + c.text(); },
              .commit = [&] { calls << "commit:" + c.text(); },
              .change = [&] { calls << "change:" + c.text(); }});
    c.setText("10");
    EXPECT_TRUE(calls.isEmpty());
    uitest::type(e, "0");
    uitest::leave(e);
    EXPECT_EQ(calls, QStringList({"change:100", "commit:100"}));
}

// A press on each reaches its handler in views_test; here the options of
// one frame are one choice, and the model's values reach the screen.
TEST(Binder, ChoicesListsLabelsAndTabsShowTheModelsValue) {
    Host host;
    Control box("ck_Use_TCP", "Use Ethernet");
    int clicks = 0;
    auto* cb = new QCheckBox(&host.window);
    ui::bind(cb, box, {.click = [&] { ++clicks; }});
    box.setValue(1);
    EXPECT_TRUE(cb->isChecked());

    Control a("op_lag_calc_Time", "Time"), s("op_lag_calc_Str", "Strokes");
    a.setValue(1);
    auto* frame = new QGroupBox(&host.window);
    auto* ra = new QRadioButton(frame);
    auto* rs = new QRadioButton(frame);
    ui::bind(ra, a, {.click = [&] { ++clicks; }});
    ui::bind(rs, s, {.click = [&] { ++clicks; }});
    rs->click();
    EXPECT_EQ(a.value(), 0);
    a.setValue(1);
    s.setValue(0);
    EXPECT_TRUE(ra->isChecked());
    EXPECT_EQ(clicks, 1);

    Control group("op_delim");
    for (const char* t : {"Tab", "Comma", "Space", "Using..."}) group.addItem(t);
    auto* og = new ui::OptionGroup(&host.window);
    ui::bind(og, group);
    ASSERT_EQ(og->count(), 4);
    EXPECT_EQ(og->button(2)->text(), "Space");
    group.setValue(3);
    EXPECT_EQ(og->chosen(), 3);

    Control list("wits_info");
    auto* lw = new QListWidget(&host.window);
    ui::bind(lw, list);
    list.addItem("0108 Bit Depth 5000");
    list.addItem("0110 Hole Depth 5010");
    ASSERT_EQ(lw->count(), 2);
    EXPECT_EQ(lw->item(1)->text(), "0110 Hole Depth 5010");
    list.clearItems();
    EXPECT_EQ(lw->count(), 0);

    // A label shows its caption, or the text when the program writes that.
    Control label("lbl_GasUnits"), other("lbl_AutoLas");
    auto* l = new QLabel(&host.window);
    auto* l2 = new QLabel(&host.window);
    ui::bind(l, label);
    ui::bind(l2, other);
    label.setCaption("123.4");
    other.setText("600");
    EXPECT_EQ(l->text(), "123.4");
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

TEST(Binder, TerminalShowsTheLogWithTheNewestLineInViewAndTheTextAreaWritesBack) {
    Host host;
    Control c("text_window");
    auto* t = new QPlainTextEdit(&host.window);
    t->setReadOnly(true);
    t->resize(300, 80);
    ui::bind(t, c, {.key = [](QChar) {}});
    QString log;
    for (int i = 0; i < 50; ++i) {
        log += "*1234,05/01/2024,12:00:" + QString::number(i) + "\r\n";
        c.setText(log);
    }
    EXPECT_EQ(t->textCursor().position(), t->document()->characterCount() - 1);
    EXPECT_EQ(t->verticalScrollBar()->value(), t->verticalScrollBar()->maximum());
    // A cut log (the model keeps its tail) is shown as cut.
    c.setText(log.right(100));
    EXPECT_EQ(t->toPlainText(), log.right(100).replace("\r\n", "\n"));

    // An editable area gives the program its own line ends back.
    Control m("txt_message");
    auto* e = new QPlainTextEdit(&host.window);
    int commits = 0;
    ui::bind(e, m, {.commit = [&] { ++commits; }});
    m.setText("Use database version OMBRI_DB_010");
    e->moveCursor(QTextCursor::End);
    uitest::enter(e);
    uitest::type(e, "Gas show");
    EXPECT_EQ(m.text(), "Use database version OMBRI_DB_010\r\nGas show");
    uitest::leave(e);
    EXPECT_EQ(commits, 1);
}

TEST(Binder, AGoneWidgetAThrowingHandlerAndAStrayClickLeaveTheScreenUp) {
    Host host;
    // The control lives on and changes after its widget has gone.
    Control c("txt_data");
    c.setIndex(6);
    auto* e = new QLineEdit;
    ui::bind(e, c);
    delete e;
    c.setText("1550");
    c.setVisible(false);

    Control redraw("cmd_redraw_chart", "Redraw Chart");
    auto* b = new QPushButton(&host.window);
    ui::bind(b, redraw, {.click = [] { throw std::runtime_error("no chart"); }});
    EXPECT_NO_THROW(b->click());

    // Only a left double click on a text area is its double click.
    Control raw("txt_Raw_WITS_Out");
    auto* t = new QPlainTextEdit(&host.window);
    t->setReadOnly(true);
    int clicks = 0;
    ui::bind(t, raw, {.dblClick = [&] { ++clicks; }});
    uitest::doubleClick(t->viewport(), Qt::RightButton);
    EXPECT_EQ(clicks, 0);
    uitest::doubleClick(t->viewport(), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}
