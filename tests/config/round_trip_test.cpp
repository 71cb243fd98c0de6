// The settings file carries the panel from one run to the next: what is
// written is read back the same, except for the boxes the format can set
// but not clear.
#include "acquisition/control_box.h"
#include "chart/floating_boxes.h"
#include "chart/interaction.h"
#include "config_fixture.h"
#include "text/numbers.h"

#include <QRegularExpression>
#include <algorithm>
#include <random>

using cfgtest::Station;

namespace {

QStringList Lines(const QByteArray& bytes) {
    QString text = QString::fromUtf8(bytes);
    EXPECT_TRUE(text.endsWith("\r\n"));
    QStringList lines = text.split("\r\n");
    lines.removeLast();
    return lines;
}

} // namespace

TEST(ConfigRoundTrip, EveryKeptSettingComesBackInAFreshWorkstationWhateverTheLineOrder) {
    Station a;
    cfgtest::SetEverythingOffDefault(a.ws);
    config::WriteConfigFile(a.ws);
    const QByteArray original = a.readConfig();

    Station b;
    b.writeConfig(original);
    config::ReadConfigFile(b.ws);

    // The serial choice can be set by the file and never cleared (the older
    // group's test); every other kept control is checked by the rewrite below.
    b.ws.fm_setup.op_conn_using_serial.setValue(0);

    // What reading the file sets beyond the lines it writes back.
    EXPECT_EQ(b.ws.products.Gdata_separator, ";");
    const auto& s = b.ws.settings;
    EXPECT_TRUE(s.Flipped);
    EXPECT_EQ(b.ws.fm_setup.lbl_c3_color.backColor(), 3);
    // The scales follow their boxes, the C values a copy of the gas units.
    QStringList scales;
    for (double v : {s.GasScale.ScaleMin, s.GasScale.ScaleMax, s.CValueScale.ScaleMax,
                     s.RopScale.ScaleMin, s.RopScale.ScaleMax, s.GammaScale.ScaleMax,
                     s.WitsScale.ScaleMin, s.WitsScale.ScaleMax, s.RopTwipsPerFoot})
        scales << text::Str(v);
    EXPECT_EQ(scales.join(' '), "5 250 250 1 20 90 3 700 36");
    EXPECT_EQ(s.CgVisibleGain, text::Val(a.ws.fm_setup.txt_cg_gain.text()));
    EXPECT_EQ(s.IC4Gain, text::Val(a.ws.fm_setup.txt_ic4_gain.text()));

    // Written again, the file is the same to the byte but for the folder:
    // every kept control came back.
    const QString same = QString::fromUtf8(original);
    config::WriteConfigFile(b.ws);
    EXPECT_EQ(QString::fromUtf8(b.readConfig()).replace(b.folder.path(), a.folder.path()), same);

    // The lines in any order (the address still before the port it is
    // joined to) are rewritten in the fixed order.
    QStringList lines = Lines(original);
    std::mt19937 rng(20240305);
    std::shuffle(lines.begin(), lines.end(), rng);
    const qsizetype ip = lines.indexOf(QRegularExpression("\\[TCP IP\\].*"));
    const qsizetype port = lines.indexOf(QRegularExpression("\\[TCP PORT\\].*"));
    if (ip > port) lines.swapItemsAt(ip, port);
    Station c;
    c.writeConfig(lines.join("\r\n").toUtf8());
    config::ReadConfigFile(c.ws);
    c.ws.fm_setup.op_conn_using_serial.setValue(0); // as for b
    config::WriteConfigFile(c.ws);
    EXPECT_EQ(QString::fromUtf8(c.readConfig()).replace(c.folder.path(), a.folder.path()), same);
}

TEST(ConfigRoundTrip, TheOlderGroupIsSetByTheFileButNeverCleared) {
    // The kept switches: every box and the serial choice.
    auto switches = [](Station& st) {
        QList<forms::Control*> out;
        for (forms::Control* c : st.ws.fm_setup.controls())
            if (!cfgtest::NotKept(*c) &&
                (cfgtest::IsBox(*c) || c->name() == "op_conn_using_serial"))
                out << c;
        return out;
    };
    // The writer's workstation has every switch off, the reader's every one on.
    Station a;
    for (forms::Control* c : switches(a)) c->setValue(0);
    config::WriteConfigFile(a.ws);
    Station b;
    for (forms::Control* c : switches(b)) c->setValue(1);
    b.ws.settings.Flipped = true;
    b.writeConfig(a.readConfig());
    config::ReadConfigFile(b.ws);

    QStringList stayedOn;
    for (const forms::Control* c : switches(b))
        if (c->value() == 1) stayedOn << c->name();
    QStringList want = cfgtest::SetOnlyBoxes();
    want.sort();
    stayedOn.sort();
    EXPECT_EQ(stayedOn, want);
    EXPECT_TRUE(b.ws.settings.Flipped);
}

TEST(ConfigRoundTrip, TheFileHasItsHeaderAFreshPanelChoosesSerialAndOneLasUnit) {
    Station st;
    const QStringList lines = Lines(config::ConfigText(st.ws));
    ASSERT_GT(lines.size(), 13);
    EXPECT_EQ(lines[0], "The following is the configuration file for the gas chart program");
    EXPECT_EQ(lines[7], "[APP PATH] " + st.folder.path());
    const QStringList tags = lines.mid(13);
    EXPECT_TRUE(tags.contains("[USE SERIAL]"));
    EXPECT_FALSE(tags.contains("[USE ETHERNET]"));
    EXPECT_EQ(tags.filter(QRegularExpression("^\\[LAS C VALUES IN ")).size(), 1);
}

TEST(ConfigRoundTrip, TheControlBoxIsFoundWhereItWasDraggedTo) {
    Station a;
    auto& box = a.ws.fm_Gas_Chart.Frame6;
    box.setPlace(1000, 500);
    // A release that ends no drag leaves the file alone.
    acq::Frame6_MouseUp(a.ws, chart::kLeftButton, 1100, 520);
    EXPECT_TRUE(a.readConfig().isEmpty());
    chart::Box_MouseDown(a.ws, box, chart::kLeftButton, 1100, 520);
    chart::Box_MouseMove(a.ws, box, chart::kLeftButton, 2100, 900);
    acq::Frame6_MouseUp(a.ws, chart::kLeftButton, 3350, 1745);

    Station b;
    b.writeConfig(a.readConfig());
    config::ReadConfigFile(b.ws);
    EXPECT_EQ(b.ws.fm_Gas_Chart.Frame6.left(), 3250);
    EXPECT_EQ(b.ws.fm_Gas_Chart.Frame6.top(), 1725);
}
