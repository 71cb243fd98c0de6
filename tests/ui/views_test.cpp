// The views over a whole workstation: every control has its widget, the
// operator's acts reach the handlers of the logic, the panels hide instead
// of closing, and the main screen asks before it lets the program go.
#include "acquisition/startup.h"
#include "config/config_file.h"
#include "operator.h"
#include "raw_db.h"
#include "station.h"
#include "ui/binder.h"
#include "ui/chart_canvas.h"
#include "ui/colors.h"
#include "ui/control_widgets.h"
#include "ui/help_view.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>

using uitest::Station;

namespace {

// Runs the event loop until done() holds or the time is up.
template <class F> bool waitFor(F done, int ms = 3000) {
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < ms) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
}

QString integrity(const QString& file) {
    return testkit::RawDb(file, testkit::RawDb::Access::ReadOnly).integrity();
}

} // namespace

TEST(Views, EveryControlOfEveryPanelHasItsWidgetNamedAfterIt) {
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
}

TEST(Views, ControlBoxPressesAndEntriesReachTheLogic) {
    Station st;
    ASSERT_TRUE(st.loaded);

    // The link button: forced off, and the screen says so.
    auto* link = st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_comm1");
    ASSERT_NE(link, nullptr);
    link->click();
    EXPECT_EQ(st.ws.link.Glink_mode, 0);
    EXPECT_EQ(link->text(), "Kettlewick Forced Off");

    st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_refresh")->click();
    EXPECT_TRUE(st.ws.chart.Grefresh_paused);

    // A typed period reaches its handler on Enter, which writes the box back.
    auto* period = st.widgetOf<QLineEdit>("fm_Gas_Chart", "txt_refresh_timer");
    ASSERT_NE(period, nullptr);
    period->selectAll();
    uitest::type(period, "5");
    uitest::enter(period);
    EXPECT_EQ(period->text(), "10");

    // The buttons that show panels show their windows.
    st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_setup")->click();
    EXPECT_TRUE(st.window("fm_setup")->isVisible());
    st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_moredata")->click();
    EXPECT_TRUE(st.window("more_data")->isVisible());
    st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_WITS_info")->click();
    EXPECT_TRUE(st.window("fm_WITS")->isVisible());
}

TEST(Views, SetupEntriesReachTheSetupHandlers) {
    Station st;
    ASSERT_TRUE(st.loaded);
    auto& s = st.ws.fm_setup;
    // The metric box changes the viewer's frame words, on the other panel.
    st.widgetOf<QAbstractButton>("fm_setup", "ck_metric")->click();
    auto* frame = qobject_cast<QGroupBox*>(
        st.widgetOf<QLabel>("more_data", "lbl_DrillDepth")->parentWidget());
    EXPECT_EQ(frame->title(), "Drill Depth In Meters");

    // The surface lag takes each key.
    auto* lag = st.widgetOf<QLineEdit>("fm_setup", "txt_surface_lag");
    ASSERT_NE(lag, nullptr);
    lag->selectAll();
    uitest::type(lag, "95");
    EXPECT_EQ(st.ws.depth.Gline_lag_seconds, 95);

    // An option group's choice goes to its handler: the comma separator.
    auto* delim = st.widgetOf<QAbstractButton>("fm_setup", "op_delim_1");
    ASSERT_NE(delim, nullptr);
    delim->click();
    EXPECT_EQ(s.op_delim.value(), 1);
    EXPECT_EQ(st.ws.products.Gdata_separator, ",");
}

TEST(Views, PanelsHideInsteadOfClosingAndFollowTheirForm) {
    Station st;
    ASSERT_TRUE(st.loaded);
    for (const char* name : {"more_data", "fm_setup", "fm_help", "fm_WITS", "fm_secure"}) {
        ui::PanelWindow* w = st.window(name);
        ASSERT_NE(w, nullptr) << name;
        EXPECT_FALSE(w->isVisible()) << name;
        w->panel().form.setVisible(true);
        EXPECT_TRUE(w->isVisible()) << name;
        EXPECT_EQ(w->windowTitle(), w->panel().form.caption());
        EXPECT_FALSE(w->close()) << name;
        EXPECT_FALSE(w->isVisible()) << name;
        EXPECT_FALSE(w->panel().form.visible()) << name;
    }
    // The setup panel's timers run on behind the hidden panel.
    EXPECT_TRUE(st.ws.timer("tmr_alarm_mon")->isActive());
    EXPECT_TRUE(st.ws.timer("tmr_lag_calc")->isActive());
    // A new title of the viewer shows.
    st.ws.more_data.form.setCaption("REAL TIME DATA 1234 05/01/2024 12:00:00");
    EXPECT_EQ(st.window("more_data")->windowTitle(), "REAL TIME DATA 1234 05/01/2024 12:00:00");
}

TEST(Views, TheInformationBoxKeepsToTheMiddleOfTheScreenByItsTimer) {
    Station st;
    ASSERT_TRUE(st.loaded);
    auto* help = static_cast<ui::HelpView*>(st.window("fm_help"));
    st.ws.fm_help.form.setVisible(true);
    const QRect screen = help->screen()->geometry();
    help->move(screen.left(), screen.top());
    QTimer* timer1 = st.ws.timer("fm_help.Timer1");
    timer1->setInterval(10);
    timer1->start();
    const QPoint middle = screen.center();
    EXPECT_TRUE(waitFor([&] {
        return (help->frameGeometry().center() - middle).manhattanLength() <= 2;
    })) << help->frameGeometry().center().x()
        << "," << help->frameGeometry().center().y();
}

// An instrument on a real socket, with the workstation's link connected to it.
struct Instrument {
    QTcpServer server;
    QTcpSocket* far = nullptr;
    QByteArray got;
    bool connect(Workstation& ws) {
        if (!server.listen(QHostAddress::LocalHost)) return false;
        ws.Winsock_ombri.RemoteHost = "127.0.0.1";
        ws.Winsock_ombri.RemotePort = server.serverPort();
        ws.Winsock_ombri.Connect();
        if (!waitFor([&] { return ws.Winsock_ombri.State() == 7; })) return false;
        if (!waitFor([&] { return server.hasPendingConnections(); })) return false;
        far = server.nextPendingConnection();
        ws.link.Gsock_state = 7;
        return true;
    }
    // Waits until what has arrived satisfies done.
    template <class F> bool receive(F done) {
        return waitFor([&] {
            got += far->readAll();
            return done(got);
        });
    }
};

TEST(Views, KeysTypedInTheTerminalGoToTheInstrumentAndAreNotShown) {
    Station st;
    ASSERT_TRUE(st.loaded);
    Instrument kw;
    ASSERT_TRUE(kw.connect(st.ws));

    st.ws.more_data.form.setVisible(true);
    auto* terminal = st.widgetOf<QPlainTextEdit>("more_data", "text_window");
    ASSERT_NE(terminal, nullptr);
    const QString shown = terminal->toPlainText();
    uitest::type(terminal, "STATUS");
    uitest::enter(terminal);
    EXPECT_TRUE(kw.receive([](const QByteArray& g) { return g == "STATUS\r"; }))
        << kw.got.toStdString();
    EXPECT_EQ(terminal->toPlainText(), shown);
}

TEST(Views, TheConsoleButtonsAndTheLoginPanelTalkToTheInstrument) {
    Station st;
    ASSERT_TRUE(st.loaded);
    Instrument kw;
    ASSERT_TRUE(kw.connect(st.ws));

    // A console row: its typed value goes out with its button.
    uitest::type(st.widgetOf<QLineEdit>("fm_setup", "txt_data_0"), "4600");
    st.widgetOf<QPushButton>("fm_setup", "cmd_KW_command_0")->click();
    EXPECT_TRUE(kw.receive([](const QByteArray& g) { return g.contains("setdepth 4600\r"); }))
        << kw.got.toStdString();

    // The login: the panel opens from its button; Enter in the password box
    // sends the key and puts the panel away.
    st.widgetOf<QPushButton>("fm_setup", "cmd_secure")->click();
    ASSERT_TRUE(st.window("fm_secure")->isVisible());
    uitest::type(st.widgetOf<QLineEdit>("fm_secure", "txt_username"), "logger");
    auto* pwe = st.widgetOf<QLineEdit>("fm_secure", "txt_pwe");
    EXPECT_EQ(pwe->echoMode(), QLineEdit::Password);
    uitest::type(pwe, "secret");
    EXPECT_EQ(st.ws.fm_secure.txt_pwe.text(), "secret");
    kw.got.clear();
    uitest::enter(pwe);
    EXPECT_TRUE(kw.receive([](const QByteArray& g) { return g.contains("]\r\n"); }))
        << kw.got.toStdString();
    EXPECT_TRUE(kw.got.startsWith("[PGP KEY "));
    EXPECT_FALSE(st.window("fm_secure")->isVisible());
}

TEST(Views, APressOnTheScreenHidesOrShowsTheControlBoxAndKeepsTheSettings) {
    Station st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    auto* box = st.widgetOf("fm_Gas_Chart", "Frame6");
    ASSERT_NE(box, nullptr);
    QFile::remove(st.folder.file(config::kConfigFileName));

    uitest::press(st.main()->centralWidget(), Qt::LeftButton, {2, 2});
    EXPECT_FALSE(st.ws.fm_Gas_Chart.Frame6.visible());
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(st.folder.exists(config::kConfigFileName));

    uitest::press(st.main()->centralWidget(), Qt::RightButton, {2, 2});
    EXPECT_TRUE(st.ws.fm_Gas_Chart.Frame6.visible());
    EXPECT_TRUE(box->isVisible());
    // A press on a button is the button's.
    uitest::press(st.widgetOf("fm_Gas_Chart", "cmd_redraw_chart"), Qt::LeftButton);
    EXPECT_TRUE(st.ws.fm_Gas_Chart.Frame6.visible());
}

TEST(Views, TheTitleTakesItsShortFormWhileMinimized) {
    Station st;
    ASSERT_TRUE(st.loaded);
    st.ws.packet.UnitSerial = "1234";
    st.desktop.showMain();
    const QString full = acq::MainTitle(st.ws);
    EXPECT_EQ(st.main()->windowTitle(), full);
    st.main()->setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(st.ws.fm_Gas_Chart.minimized);
    EXPECT_EQ(st.main()->windowTitle(), "1234 Ver " + station::Revision());
    st.main()->setWindowState(Qt::WindowNoState);
    EXPECT_FALSE(st.ws.fm_Gas_Chart.minimized);
    EXPECT_EQ(st.main()->windowTitle(), full);
}

TEST(Views, TheExitQuestionNoKeepsRunningYesClosesTheJobCleanly) {
    Station st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    st.ws.more_data.form.setVisible(true);

    st.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(st.main()->close());
    ASSERT_EQ(st.dialogs.boxes.size(), 1u);
    EXPECT_EQ(st.dialogs.boxes[0].title, "EXIT PROGRAM?");
    EXPECT_EQ(st.dialogs.boxes[0].text, "Are you sure you want to exit?");
    EXPECT_TRUE(st.main()->isVisible());
    EXPECT_TRUE(st.window("more_data")->isVisible());

    st.dialogs.answers.push_back(platform::Answer::Yes);
    EXPECT_TRUE(st.main()->close());
    EXPECT_FALSE(st.main()->isVisible());
    EXPECT_FALSE(st.window("more_data")->isVisible());
    EXPECT_TRUE(st.ws.closing);
    EXPECT_FALSE(st.ws.timer("tmr_refresh")->isActive());
    // The job the start-up opened is whole and closed: nothing of the
    // write-ahead log is left to replay.
    const QString job = st.ws.fm_Gas_Chart.txt_db_path.text();
    ASSERT_TRUE(QFile::exists(job)) << job.toStdString();
    EXPECT_EQ(integrity(job), "ok");
    EXPECT_FALSE(QFile::exists(job + "-wal") && QFile(job + "-wal").size() > 0);
}
