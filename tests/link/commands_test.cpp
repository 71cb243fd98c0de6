// The operator's console to the instrument and the login block.
#include "acquisition/commands.h"
#include "acquisition/link.h"
#include "far_end.h"
#include "link_kit.h"

#include <QSerialPort>
#include <gtest/gtest.h>

using namespace linktest;

namespace {

// The masked twenty bytes of a login message, unmasked.
QByteArray Unmask(const QString& message, int* k = nullptr) {
    auto element = [&](int i) { return message.mid(9 + 3 * i, 3).toInt(); };
    const int kk = element(5);
    if (k) *k = kk;
    QByteArray out;
    for (int i = 0; i < 20; ++i) out += char(element(kk + i) ^ element(6 + i));
    return out;
}

} // namespace

TEST(Commands, RowsKeepTheirLimitsWakeTheInstrumentAreLoggedAndGoOutOnTheLinkInUse) {
    Station st;
    testkit::FarEnd far;
    auto& data = st.ws.fm_setup.txt_data;

    // With no link open the buttons do nothing and say nothing.
    data[2].setText("300");
    acq::cmd_KW_command_Click(st.ws, 2);
    EXPECT_EQ(data[2].text(), "300");
    EXPECT_FALSE(st.folder.exists("COMMAND_LOG.TXT"));

    ASSERT_TRUE(far.attach(st.ws));
    ASSERT_EQ(st.ws.link.Gsock_state, 7);
    data[0].setText("4600");
    data[5].setText("26");
    data[6].setText("1550");
    st.ws.fm_setup.txt_Kettlewick_string.setText("");
    for (int row : {2, 5, 6, 0, 8, 9}) acq::cmd_KW_command_Click(st.ws, row);
    Pump(200);

    EXPECT_EQ(data[2].text(), "250");
    EXPECT_EQ(data[5].text(), "25");
    EXPECT_EQ(data[6].text(), "1550"); // no limit, only divided on the way out
    EXPECT_EQ(QString::fromLatin1(far.got),
              "\rsetreg 29 250\r"
              "\rsetreg 45 25\r"
              "\rsetreg 53 15\r"
              "\rsetdepth 4600\r"
              "\r\r"
              "\rSETDEPTH\rREADREG 25\rREADREG 29\rREADREG 30\rREADREG 34\rREADREG 45\r"
              "READREG 53\rSETJOBNUM\rSTATUS\r");
    EXPECT_EQ(st.ws.fm_setup.cmd_KW_command[9].caption(), "Get Data From Kettlewick");

    // Rows 0 to 8 are logged, the read back is not.
    const QStringList log = st.folder.read("COMMAND_LOG.TXT").split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(log.size(), 5);
    EXPECT_TRUE(log[2].endsWith(" *** COMMAND OUTPUT TO KW: setreg 53 15"));

    // An open serial port is the link in use: the row goes there, and the
    // login, which a plain wire does not carry, goes nowhere.
    PortPair pair;
    ASSERT_TRUE(pair.start());
    st.ws.ports.place(1, pair.workstationEnd());
    st.ws.MSComm1.CommPort = 1;
    ASSERT_EQ(st.ws.MSComm1.SetPortOpen(true), 0);
    QSerialPort instrument(pair.farEnd());
    ASSERT_TRUE(instrument.open(QIODevice::ReadWrite));
    st.ws.fm_secure.txt_username.setText("driller");
    st.ws.fm_secure.txt_pwe.setText("secret");
    data[7].setText("2214");
    far.got.clear();
    acq::send_key(st.ws);
    acq::cmd_KW_command_Click(st.ws, 7);
    Pump(300);
    instrument.waitForReadyRead(500);
    EXPECT_EQ(QString::fromLatin1(instrument.readAll()), "\rsetjobnum 2214\r");
    EXPECT_TRUE(far.got.isEmpty()) << far.got.left(20).toStdString();

    // With the port closed the socket is in use and carries both.
    st.ws.MSComm1.SetPortOpen(false);
    acq::send_key(st.ws);
    acq::cmd_KW_command_Click(st.ws, 7);
    Pump(300);
    EXPECT_TRUE(far.got.startsWith("[PGP KEY ")) << far.got.left(20).toStdString();
    EXPECT_TRUE(far.got.endsWith("]\r\n\rsetjobnum 2214\r"));
}

TEST(Commands, LoginBlockHasItsFormAndMasksNameAndPassword) {
    Station st;
    std::set<int> ks;
    for (int i = 0; i < 300; ++i) {
        const QString m = acq::KeyMessage(st.ws, "driller", "s3cret");
        ASSERT_EQ(m.size(), 9 + 765 + 1 + 2);
        int k = 0;
        const QByteArray plain = Unmask(m, &k);
        ASSERT_TRUE(k >= 30 && k <= 200) << k;
        ks.insert(k);
        EXPECT_EQ(plain, QByteArray("driller\0\0\0s3cret\0\0\0\0", 20));
    }
    EXPECT_GT(ks.size(), 50u); // the pad's place moves about its whole range

    // A long name runs into the password field and the password wins.
    EXPECT_EQ(Unmask(acq::KeyMessage(st.ws, "abcdefghijkl", "xyz")),
              QByteArray("abcdefghijxyz\0\0\0\0\0\0\0", 20));
}

TEST(Commands, ReadBackFillsTheBoxesAndLoginOpensTwoWayWhichTheTimerKeepsOpen) {
    Station st;
    ASSERT_TRUE(st.startTcpSimulator(
        {"--interval", "6", "--start-depth", "5123.4", "--two-way-login", "--reply-gap", "50"}));
    Simulator& sim = *st.sim;
    auto& secure = st.ws.fm_secure;
    auto& button = st.ws.fm_setup.cmd_secure;

    // Too short: a box, and the panel stays.
    acq::cmd_secure_Click(st.ws);
    secure.txt_username.setText("ab");
    secure.txt_pwe.setText("secret");
    acq::cmd_send_key_Click(st.ws);
    secure.txt_username.setText("abc");
    secure.txt_pwe.setText("se");
    acq::txt_pwe_KeyPress(st.ws, 13);
    ASSERT_EQ(st.dialogs.boxes.size(), 2u);
    EXPECT_EQ(st.dialogs.boxes[0].title + ": " + st.dialogs.boxes[0].text,
              "USERNAME TOO SHORT: The username must be at least 3 characters long");
    EXPECT_EQ(st.dialogs.boxes[1].title + ": " + st.dialogs.boxes[1].text,
              "PASSWORD TOO SHORT: The password must be at least 3 characters long");
    EXPECT_TRUE(secure.form.visible());

    acq::winsock_connect(st.ws);
    // The answer to the status request: output only.
    ASSERT_TRUE(PumpUntil(3000, [&] { return button.backColor() == forms::color::Red; }));

    auto& data = st.ws.fm_setup.txt_data;
    data[3].setText("80");
    acq::cmd_KW_command_Click(st.ws, 3);
    for (auto& box : data) box.setText("");
    acq::cmd_KW_command_Click(st.ws, 9);
    ASSERT_TRUE(PumpUntil(6000, [&] { return !data[7].text().isEmpty(); }));
    Pump(400);
    QStringList boxes;
    for (int i = 0; i < 8; ++i) boxes << data[i].text();
    // Row 3 as set a moment before; register 53 holds hundreds.
    EXPECT_EQ(boxes, (QStringList{"5123", "5", "30", "80", "3", "10", "1500", "1001"}));

    secure.txt_pwe.setText("secret");
    acq::cmd_send_key_Click(st.ws);
    EXPECT_FALSE(secure.form.visible());
    ASSERT_TRUE(PumpUntil(3000, [&] { return button.caption() == "Two Way Active"; }));
    EXPECT_EQ(sim.count("LOGIN OK"), 1);

    // A name of three characters is not sent again by the timer; four are.
    acq::tmr_stay_logged_in_Timer(st.ws);
    Pump(300);
    EXPECT_EQ(sim.count("LOGIN "), 1);
    secure.txt_username.setText("abcd");
    acq::tmr_stay_logged_in_Timer(st.ws);
    ASSERT_TRUE(PumpUntil(3000, [&] { return sim.count("LOGIN OK") == 2; }));

    // A block the instrument can't read leaves it output only.
    st.ws.Winsock_ombri.SendData("[PGP KEY 123]\r\n");
    ASSERT_TRUE(PumpUntil(3000, [&] { return button.caption() == "Two Way Inactive"; }));
    EXPECT_EQ(sim.count("LOGIN REFUSED"), 1);
}
