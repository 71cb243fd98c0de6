// The typed address, the look-up file and the link switches: no instrument
// needed, only what the operator sees.
#include "acquisition/link.h"
#include "link_kit.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace linktest;

namespace {

void WriteLookup(const Station& st, const QByteArray& text) {
    QFile f(st.folder.file("RDVlookup.txt"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(text);
}

} // namespace

TEST(Address, TypedAddressesTheBarredBandAndAShortHost) {
    struct Case {
        const char* typed;
        const char* box; // empty: taken
        const char* host;
        const char* port;
    };
    const char* badIp = "You have entered an invalid IP/port.  TCP connection not established";
    const char* badPort =
        "You have entered an invalid connection port.  TCP connection not established";
    const Case cases[] = {
        {"192.168.7.43", badIp, "", ""}, // no port
        {"1.1:23", badIp, "", ""},
        {"127.0.0.1:2200", badPort, "127.0.0.1", "2200"},
        {"127.0.0.1:2399", badPort, "127.0.0.1", "2399"},
        {"10.0.0.5:2199", "", "10.0.0.5", "2199"},
        {"10.0.0.5:2400", "", "10.0.0.5", "2400"},
        {"kw-unit-7:23", "", "kw-unit-7", "23"},
    };
    for (const Case& c : cases) {
        Station st;
        auto& setup = st.ws.fm_setup;
        setup.txt_TCP_ip_port.setText(c.typed);
        setup.ck_Use_TCP.setChecked(true);
        acq::ck_Use_TCP_Click(st.ws);
        EXPECT_EQ(st.ws.link.Glink_countdown, 2) << c.typed;
        EXPECT_EQ(st.ws.link.Gtcp_host, c.host) << c.typed;
        EXPECT_EQ(st.ws.link.Gtcp_port, c.port) << c.typed;
        if (*c.box) {
            ASSERT_EQ(st.dialogs.boxes.size(), 1u) << c.typed;
            EXPECT_EQ(st.dialogs.boxes[0].title, "TCP SET ERROR");
            EXPECT_EQ(st.dialogs.boxes[0].text, c.box);
            EXPECT_FALSE(setup.ck_Use_TCP.checked());
            EXPECT_FALSE(st.ws.link.Guse_tcp);
            EXPECT_EQ(setup.txt_TCP_ip_port.text(), "192.168.1.1:23");
        } else {
            EXPECT_TRUE(st.dialogs.boxes.empty()) << c.typed;
            EXPECT_TRUE(st.ws.link.Guse_tcp);
            EXPECT_EQ(setup.txt_TCP_ip_port.text(), c.typed);
        }
    }
    // Unticked: Ethernet is left. A host that short is not tried at all.
    Station st;
    st.ws.link.Guse_tcp = true;
    st.ws.fm_setup.ck_Use_TCP.setChecked(false);
    acq::ck_Use_TCP_Click(st.ws);
    EXPECT_FALSE(st.ws.link.Guse_tcp);
    st.ws.link.Guse_tcp = true;
    st.ws.link.Gtcp_host = "1.2.";
    st.ws.link.Gtcp_port = "23";
    st.ws.link.Glink_countdown = 17;
    acq::winsock_connect(st.ws);
    EXPECT_EQ(st.ws.link.Glink_countdown, 17); // a try, failed or not, sets 61
    EXPECT_EQ(st.ws.link.Gsock_state, 0);
}

TEST(Address, LookUpFileFindsTheUnit) {
    Station st;
    auto& setup = st.ws.fm_setup;
    // Types a unit number, presses and gives the text of the box that came up.
    auto look = [&](const char* typed, void (*press)(Workstation&) = acq::cmd_KW_lut_Click,
                    const char* title = "LOOK UP TABLE") {
        setup.txt_KW_lut.setText(typed);
        press(st.ws);
        if (st.dialogs.boxes.empty()) return std::string();
        auto b = st.dialogs.boxes.back();
        st.dialogs.boxes.clear();
        EXPECT_EQ(b.title, title);
        return b.text.toStdString();
    };
    for (const char* typed : {"0000", "1000", "123", "00042"})
        EXPECT_EQ(look(typed),
                  "You will need to enter a correct 4 digit number to use the look up table.")
            << typed;
    EXPECT_EQ(look("12345", acq::readlookupfile), "The Value must be a 4 digit number");
    EXPECT_EQ(look("0042"), "The Lookup table file is not found RDVlookup.txt");

    WriteLookup(st, "unit address port\r\n"
                    "7 1.2.3 4\r\n" // ten characters or fewer: passed over
                    "041 10.1.1.41 4001\r\n"
                    "042 10.1.1.42 4002\r\n"
                    "042 10.1.1.99 4099\r\n"
                    "043 192.168.7.43 2300\r\n"
                    "1007 10.7.7.7 23\r\n");
    EXPECT_EQ(look("0007"), "Serial number not found in look up table");

    // Found, Ethernet not chosen: only the address box changes.
    EXPECT_EQ(look("0042"), "");
    EXPECT_EQ(setup.txt_TCP_ip_port.text(), "10.1.1.42:4002");
    EXPECT_FALSE(st.ws.link.Guse_tcp);

    // Found with Ethernet chosen: the address is taken at once.
    setup.ck_Use_TCP.setChecked(true);
    EXPECT_EQ(look("1041"), "");
    EXPECT_TRUE(st.ws.link.Guse_tcp);
    EXPECT_EQ(st.ws.link.Gtcp_host, "10.1.1.41");
    EXPECT_EQ(st.ws.link.Gtcp_port, "4001");
    EXPECT_EQ(st.ws.link.Glink_countdown, 2);

    // ... and a barred port found there is refused like a typed one.
    EXPECT_EQ(look("0043", acq::cmd_KW_lut_Click, "TCP SET ERROR"),
              "You have entered an invalid connection port.  TCP connection not established");
    EXPECT_FALSE(st.ws.link.Guse_tcp);
}

TEST(Address, TheLinkSwitches) {
    Station st;
    auto& button = st.ws.fm_Gas_Chart.cmd_comm1;
    st.ws.link.Gdetector_found = true;
    acq::cmd_comm1_Click(st.ws);
    EXPECT_EQ(button.backColor(), forms::color::Grey);
    EXPECT_FALSE(st.ws.link.Gdetector_found);

    // Forced off, a scan returns at once and touches nothing.
    st.ws.link.Gcomm_port = 5;
    acq::SerialFindKettlewick(st.ws);
    EXPECT_EQ(st.ws.link.Gcomm_port, 5);
    EXPECT_EQ(button.caption(), "Kettlewick Forced Off");

    // Back on over serial with no instrument anywhere: both passes run out
    // on port 20.
    acq::cmd_comm1_Click(st.ws);
    EXPECT_EQ(st.ws.link.Glink_mode, 1);
    EXPECT_EQ(st.ws.link.Glink_countdown, 61);
    EXPECT_EQ(st.ws.link.Gcomm_port, 20);
    EXPECT_EQ(button.caption(), "Kettlewick Disconnected");
    EXPECT_EQ(button.backColor(), forms::color::Red);

    // Choosing serial again leaves Ethernet and scans.
    st.ws.link.Guse_tcp = true;
    st.ws.link.Glink_mode = 0;
    st.ws.link.Gcomm_port = 3;
    acq::op_conn_using_serial_Click(st.ws);
    EXPECT_FALSE(st.ws.link.Guse_tcp);
    EXPECT_EQ(st.ws.link.Glink_mode, 1);
    EXPECT_EQ(st.ws.link.Gcomm_port, 20);

    // Over Ethernet the scan is not the one to run.
    st.ws.link.Guse_tcp = true;
    st.ws.link.Gcomm_port = 3;
    acq::SerialFindKettlewick(st.ws);
    EXPECT_EQ(st.ws.link.Gcomm_port, 3);
}
