// The views over a whole workstation: every control has its widget and the
// operator's acts reach the handlers of the logic.
#include "acquisition/startup.h"
#include "config/config_file.h"
#include "far_end.h"
#include "operator.h"
#include "station.h"
#include "ui/binder.h"
#include "ui/control_widgets.h"

#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <gtest/gtest.h>

using uitest::Station;

TEST(Views, EveryControlHasItsWidgetAndThePressesAndEntriesReachTheLogic) {
    Station st;
    ASSERT_TRUE(st.loaded);
    for (forms::Panel* p : st.ws.panels()) {
        for (const forms::Control* c : p->controls()) {
            if (ui::kindOf(*c) == ui::Kind::None && c->name() != "SSTab1" &&
                c->name() != "tab_setup")
                continue; // lines and timers are drawn or run, not shown
            const QString name = ui::objectNameOf(*c);
            EXPECT_NE(st.widgetOf(p->name(), name), nullptr)
                << p->name().toStdString() << "." << name.toStdString();
        }
    }
    // Each viewer label stands in its own frame, under that frame's words.
    for (const auto& f : forms::MoreData::fieldLabels()) {
        const forms::Control& label = st.ws.more_data.*(f.label);
        auto* l = st.widgetOf<QLabel>("more_data", label.name());
        ASSERT_NE(l, nullptr);
        auto* frame = qobject_cast<QGroupBox*>(l->parentWidget());
        ASSERT_NE(frame, nullptr) << label.name().toStdString();
        EXPECT_EQ(frame->title().toStdString(),
                  st.ws.more_data.frameOf(label.name()).caption().toStdString());
    }

    auto* link = st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_comm1");
    ASSERT_NE(link, nullptr);
    link->click();
    EXPECT_EQ(link->text(), "Kettlewick Forced Off");

    // A typed period reaches its handler on Enter, which writes the box back.
    auto* period = st.widgetOf<QLineEdit>("fm_Gas_Chart", "txt_refresh_timer");
    period->selectAll();
    uitest::type(period, "5");
    uitest::enter(period);
    EXPECT_EQ(period->text(), "10");

    for (const char* button : {"cmd_setup", "cmd_moredata", "cmd_WITS_info"})
        st.widgetOf<QPushButton>("fm_Gas_Chart", button)->click();
    for (const char* panel : {"fm_setup", "more_data", "fm_WITS"})
        EXPECT_TRUE(st.window(panel)->isVisible()) << panel;

    // The metric box changes the viewer's frame words, on the other panel.
    st.widgetOf<QAbstractButton>("fm_setup", "ck_metric")->click();
    auto* frame = qobject_cast<QGroupBox*>(
        st.widgetOf<QLabel>("more_data", "lbl_DrillDepth")->parentWidget());
    EXPECT_EQ(frame->title(), "Drill Depth In Meters");
    // The surface lag takes each key.
    auto* lag = st.widgetOf<QLineEdit>("fm_setup", "txt_surface_lag");
    lag->selectAll();
    uitest::type(lag, "95");
    EXPECT_EQ(st.ws.depth.Gline_lag_seconds, 95);
    // An option group's choice goes to its handler: the comma separator.
    st.widgetOf<QAbstractButton>("fm_setup", "op_delim_1")->click();
    EXPECT_EQ(st.ws.products.Gdata_separator, ",");
}

TEST(Views, PanelsTalkToTheInstrumentAndHideAndTheMainScreenAsksBeforeTheExit) {
    Station st;
    ASSERT_TRUE(st.loaded);
    testkit::FarEnd kw;
    ASSERT_TRUE(kw.attach(st.ws));

    // Keys typed in the terminal go out and are not shown.
    st.ws.more_data.form.setVisible(true);
    auto* terminal = st.widgetOf<QPlainTextEdit>("more_data", "text_window");
    const QString shown = terminal->toPlainText();
    uitest::type(terminal, "STATUS");
    uitest::enter(terminal);
    EXPECT_TRUE(kw.receive([](const QByteArray& g) { return g == "STATUS\r"; }))
        << kw.got.toStdString();
    EXPECT_EQ(terminal->toPlainText(), shown);

    // A console row: its typed value goes out with its button.
    uitest::type(st.widgetOf<QLineEdit>("fm_setup", "txt_data_0"), "4600");
    st.widgetOf<QPushButton>("fm_setup", "cmd_KW_command_0")->click();
    EXPECT_TRUE(kw.receive([](const QByteArray& g) { return g.contains("setdepth 4600\r"); }))
        << kw.got.toStdString();

    // The login: Enter in the hidden password box sends the key and puts
    // the panel away.
    st.widgetOf<QPushButton>("fm_setup", "cmd_secure")->click();
    ASSERT_TRUE(st.window("fm_secure")->isVisible());
    uitest::type(st.widgetOf<QLineEdit>("fm_secure", "txt_username"), "logger");
    auto* pwe = st.widgetOf<QLineEdit>("fm_secure", "txt_pwe");
    EXPECT_EQ(pwe->echoMode(), QLineEdit::Password);
    uitest::type(pwe, "secret");
    kw.got.clear();
    uitest::enter(pwe);
    EXPECT_TRUE(kw.receive([](const QByteArray& g) { return g.contains("]\r\n"); }))
        << kw.got.toStdString();
    EXPECT_FALSE(st.window("fm_secure")->isVisible());

    st.ws.packet.UnitSerial = "1234";
    st.desktop.showMain();
    // Panels hide instead of closing, and follow their form.
    for (const char* name : {"more_data", "fm_setup", "fm_help", "fm_WITS", "fm_secure"}) {
        ui::PanelWindow* w = st.window(name);
        w->panel().form.setVisible(true);
        EXPECT_TRUE(w->isVisible()) << name;
        EXPECT_FALSE(w->close()) << name;
        EXPECT_FALSE(w->panel().form.visible()) << name;
    }
    st.ws.more_data.form.setCaption("REAL TIME DATA 1234 05/01/2024 12:00:00");
    EXPECT_EQ(st.window("more_data")->windowTitle(), "REAL TIME DATA 1234 05/01/2024 12:00:00");

    // A press on the screen hides the control box and keeps the settings; a
    // right press shows it; a press on a button is the button's.
    auto* box = st.widgetOf("fm_Gas_Chart", "Frame6");
    QFile::remove(st.folder.file(config::kConfigFileName));
    uitest::press(st.main()->centralWidget(), Qt::LeftButton, {2, 2});
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(st.folder.exists(config::kConfigFileName));
    uitest::press(st.main()->centralWidget(), Qt::RightButton, {2, 2});
    EXPECT_TRUE(box->isVisible());
    uitest::press(st.widgetOf("fm_Gas_Chart", "cmd_redraw_chart"), Qt::LeftButton);
    EXPECT_TRUE(box->isVisible());

    // The title takes its short form while minimized.
    const QString full = acq::MainTitle(st.ws);
    st.main()->setWindowState(Qt::WindowMinimized);
    EXPECT_EQ(st.main()->windowTitle(), "1234 Ver " + station::Revision());
    st.main()->setWindowState(Qt::WindowNoState);
    EXPECT_EQ(st.main()->windowTitle(), full);

    // No to the exit question keeps it running; Yes closes everything.
    st.ws.more_data.form.setVisible(true);
    st.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(st.main()->close());
    ASSERT_EQ(st.dialogs.boxes.size(), 1u);
    EXPECT_EQ(st.dialogs.boxes[0].title, "EXIT PROGRAM?");
    EXPECT_EQ(st.dialogs.boxes[0].text, "Are you sure you want to exit?");
    st.dialogs.answers.push_back(platform::Answer::Yes);
    EXPECT_TRUE(st.main()->close());
    EXPECT_FALSE(st.window("more_data")->isVisible());
    EXPECT_FALSE(st.ws.timer("tmr_refresh")->isActive());
}
