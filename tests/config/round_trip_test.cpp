// The settings file carries the panel from one run to the next: what is
// written is read back the same, except for the boxes the format can set
// but not clear.
#include "config/config_tags.h"
#include "config_fixture.h"
#include "text/numbers.h"

#include <QRegularExpression>
#include <algorithm>
#include <random>

using cfgtest::Station;

namespace {

// Name, element, text and value of every kept control.
QStringList KeptState(const forms::Panel& p) {
    QStringList out;
    for (const forms::Control* c : p.controls())
        if (!cfgtest::NotKept(*c))
            out << QStringLiteral("%1(%2) text=[%3] value=%4")
                       .arg(c->name())
                       .arg(c->index())
                       .arg(c->text())
                       .arg(c->value());
    return out;
}

QStringList Lines(const QByteArray& bytes) {
    QString text = QString::fromUtf8(bytes);
    EXPECT_TRUE(text.endsWith("\r\n"));
    QStringList lines = text.split("\r\n");
    lines.removeLast();
    return lines;
}

} // namespace

TEST(ConfigRoundTrip, EveryKeptSettingComesBackInAFreshWorkstation) {
    Station a;
    cfgtest::SetEverythingOffDefault(a.ws);
    config::WriteConfigFile(a.ws);

    Station b;
    b.writeConfig(a.readConfig());
    config::ReadConfigFile(b.ws);

    const QStringList want = KeptState(a.ws.fm_setup);
    const QStringList got = KeptState(b.ws.fm_setup);
    ASSERT_EQ(want.size(), got.size());
    // The one kept control that comes back different is the serial choice:
    // the file can set it and never clear it, and it starts set.
    for (int i = 0; i < want.size(); ++i) {
        if (want[i].startsWith("op_conn_using_serial(")) {
            EXPECT_EQ(a.ws.fm_setup.op_conn_using_serial.value(), 0);
            EXPECT_EQ(b.ws.fm_setup.op_conn_using_serial.value(), 1);
            continue;
        }
        EXPECT_EQ(got[i], want[i]);
    }
    // The round trip really moved something: the fresh panel differed.
    Station fresh;
    EXPECT_NE(KeptState(fresh.ws.fm_setup), want);

    EXPECT_EQ(b.ws.fm_Gas_Chart.txt_db_path.text(), "/jobs/well 7/WELL7.DB");
    EXPECT_EQ(b.ws.rt.Grefresh_seconds, 240);
    EXPECT_EQ(b.ws.fm_Gas_Chart.txt_refresh_timer.text(), "240");
    EXPECT_EQ(b.ws.rt.Gserial_number, "4711");
    EXPECT_EQ(b.ws.rt.Gwits_column, 1);
    EXPECT_EQ(b.ws.rt.Gdata_separator, ";");
    EXPECT_TRUE(b.ws.rt.Guse_tcp);
    EXPECT_EQ(b.ws.rt.Gtcp_host, "10.1.2.3");
    EXPECT_EQ(b.ws.rt.Gtcp_port, "2301");
    const auto& s = b.ws.settings;
    EXPECT_EQ(s.Zoom, 4);
    EXPECT_EQ(s.MenuX, 2400);
    EXPECT_EQ(s.MenuY, 360);
    EXPECT_TRUE(s.Flipped);
    EXPECT_EQ(s.Gbackground_file, "/pictures/rig.jpg");
    EXPECT_EQ(s.BackgroundColor, 0x123456);
    const long colours[] = {s.ColorC1,         s.ColorC2,     s.ColorC3,
                            s.ColorIC4,        s.ColorNC4,    s.ColorMudDenFlow,
                            s.ColorMudDensity, s.ColorMudTmp, s.ColorMudFlow};
    for (int i = 0; i < 9; ++i) EXPECT_EQ(colours[i], i + 1);
    // The gas colours reach the panel once the file is read.
    EXPECT_EQ(b.ws.fm_setup.lbl_c3_color.backColor(), 3);
    EXPECT_EQ(b.ws.fm_setup.ck_nc4.foreColor(), 5);
    // The scales follow their boxes, the C values a copy of the gas units.
    EXPECT_EQ(s.GasScale.ScaleMin, 5);
    EXPECT_EQ(s.GasScale.ScaleMax, 250);
    EXPECT_EQ(s.CValueScale.ScaleMax, 250);
    EXPECT_EQ(s.RopScale.ScaleMin, 1);
    EXPECT_EQ(s.RopScale.ScaleMax, 20);
    EXPECT_EQ(s.GammaScale.ScaleMax, 90);
    EXPECT_EQ(s.WitsScale.ScaleMin, 3);
    EXPECT_EQ(s.WitsScale.ScaleMax, 700);
    EXPECT_DOUBLE_EQ(s.RopTwipsPerFoot, 36);
    EXPECT_EQ(s.CgVisibleGain, text::Val(a.ws.fm_setup.txt_cg_gain.text()));
    EXPECT_EQ(s.IC4Gain, text::Val(a.ws.fm_setup.txt_ic4_gain.text()));
    EXPECT_EQ(s.stats_countdown,
              text::CLng(text::Val(a.ws.fm_setup.txt_autotally_minutes.text()) * 60));

    // Written again, the file is the same to the byte but for the folder
    // and the serial choice, which b started with set.
    config::WriteConfigFile(b.ws);
    QString again = QString::fromUtf8(b.readConfig());
    again.replace(b.folder.path(), a.folder.path());
    EXPECT_EQ(again,
              QString::fromUtf8(a.readConfig()).replace("[USE ETHERNET]\r\n", "[USE SERIAL]\r\n"));
}

TEST(ConfigRoundTrip, TheOlderGroupIsSetByTheFileButNeverCleared) {
    // The writer's workstation has every box off, the reader's every box on.
    Station a;
    for (forms::Control* c : a.ws.fm_setup.controls())
        if (!cfgtest::NotKept(*c) && (cfgtest::IsBox(*c) || c->name() == "op_conn_using_serial"))
            c->setValue(0);
    config::WriteConfigFile(a.ws);

    Station b;
    for (forms::Control* c : b.ws.fm_setup.controls())
        if (!cfgtest::NotKept(*c) && (cfgtest::IsBox(*c) || c->name() == "op_conn_using_serial"))
            c->setValue(1);
    b.ws.settings.Flipped = true;
    b.writeConfig(a.readConfig());
    config::ReadConfigFile(b.ws);

    QStringList stayedOn;
    for (const forms::Control* c : b.ws.fm_setup.controls()) {
        if (cfgtest::NotKept(*c)) continue;
        if (!cfgtest::IsBox(*c) && c->name() != "op_conn_using_serial") continue;
        if (c->value() == 1) stayedOn << c->name();
    }
    QStringList want = cfgtest::SetOnlyBoxes();
    want.sort();
    stayedOn.sort();
    EXPECT_EQ(stayedOn, want);
    EXPECT_TRUE(b.ws.settings.Flipped);

    // The file says what it can't clear: the OFF halves are written.
    const QString file = QString::fromUtf8(a.readConfig());
    for (const char* off : {"[H2S OFF]  \r\n", "[CG OFF]  \r\n", "[PEAK OFF] \r\n",
                            "[GAMMA OFF]\r\n", "[DO NOT USE TCP]\r\n", "[WITS VIEW OFF] \r\n",
                            "[ROP OFF] \r\n", "[METRIC OFF]\r\n", "[USE ETHERNET]\r\n"})
        EXPECT_TRUE(file.contains(off)) << off;
}

TEST(ConfigRoundTrip, TheFileHasItsHeaderEveryTagInOrderAndCrLfEnds) {
    Station st;
    config::WriteConfigFile(st.ws);
    const QByteArray bytes = st.readConfig();
    EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
    const QStringList lines = Lines(bytes);
    ASSERT_GT(lines.size(), 13);
    EXPECT_EQ(lines[0], "The following is the configuration file for the gas chart program");
    EXPECT_EQ(lines[7], "[APP PATH] " + st.folder.path());
    EXPECT_TRUE(lines[8].startsWith("[APP VER] "));
    EXPECT_TRUE(lines[9].startsWith("[APP EXE NAME] ") && lines[9].endsWith(".exe"));

    // After the header, each line is one tag, serial number first and
    // background colour last; a fresh panel chooses serial.
    const QStringList tags = lines.mid(13);
    EXPECT_EQ(tags.first(), "[SERIALNUMBER] ");
    EXPECT_TRUE(tags.contains("[USE SERIAL]"));
    EXPECT_FALSE(tags.contains("[USE ETHERNET]"));
    EXPECT_EQ(tags.last().left(18), "[BACKGROUND COLOR]");
    // One selector line each, and exactly one of the four LAS units.
    EXPECT_EQ(tags.filter(QRegularExpression("^\\[DATA SEP SEL\\]")).size(), 1);
    EXPECT_EQ(tags.filter(QRegularExpression("^\\[OIL IND\\]")).size(), 1);
    EXPECT_EQ(tags.filter(QRegularExpression("^\\[LAS C VALUES IN ")).size(), 1);
    // TCP port follows the address it is joined to.
    EXPECT_LT(tags.indexOf(QRegularExpression("\\[TCP IP\\].*")),
              tags.indexOf(QRegularExpression("\\[TCP PORT\\].*")));
    // Every line of the body starts with a tag.
    for (const QString& t : tags) EXPECT_TRUE(t.startsWith('[')) << t.toStdString();
}

TEST(ConfigRoundTrip, TheReaderLooksFor191TagsAndNoTagHidesAnother) {
    const auto& tags = config::ReadTags();
    EXPECT_EQ(tags.size(), 191u);
    // Lines are matched by their first characters: a tag that began another
    // would make a line of the longer one set both.
    for (const auto& a : tags)
        for (const auto& b : tags)
            if (&a != &b) {
                EXPECT_FALSE(b.tag.startsWith(a.tag))
                    << a.tag.toStdString() << " / " << b.tag.toStdString();
            }
}

TEST(ConfigRoundTrip, AnyOrderOfLinesIsRewrittenInTheFixedOrder) {
    Station a;
    cfgtest::SetEverythingOffDefault(a.ws);
    config::WriteConfigFile(a.ws);
    const QByteArray original = a.readConfig();

    QStringList lines = Lines(original);
    std::mt19937 rng(20240305);
    std::shuffle(lines.begin(), lines.end(), rng);
    // The address must still come before the port it is joined to.
    const qsizetype ip = lines.indexOf(QRegularExpression("\\[TCP IP\\].*"));
    const qsizetype port = lines.indexOf(QRegularExpression("\\[TCP PORT\\].*"));
    if (ip > port) lines.swapItemsAt(ip, port);

    Station b;
    b.writeConfig(lines.join("\r\n").toUtf8());
    config::ReadConfigFile(b.ws);
    // b's folder differs from a's, which only the header shows.
    config::WriteConfigFile(b.ws);
    QString rewritten = QString::fromUtf8(b.readConfig());
    rewritten.replace(b.folder.path(), a.folder.path());
    EXPECT_EQ(rewritten,
              QString::fromUtf8(original).replace("[USE ETHERNET]\r\n", "[USE SERIAL]\r\n"));
}
