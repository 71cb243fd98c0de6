// The typed address, the look-up file and the link switches.
#include "acquisition/link.h"
#include "file_bytes.h"
#include "link_kit.h"

#include <gtest/gtest.h>

using namespace linktest;

namespace {

const char* const kBadIp = "You have entered an invalid IP/port.  TCP connection not established";
const char* const kBadPort =
    "You have entered an invalid connection port.  TCP connection not established";

} // namespace

TEST(Address, TypedAddressesAndTheBarredBand) {
    struct Case {
        const char* typed;
        const char* box;   // empty: taken
        const char* taken; // host:port
    };
    const Case cases[] = {
        {"192.168.7.43", kBadIp, ":"}, // no port
        {"1.1:23", kBadIp, ":"},
        {"127.0.0.1:2200", kBadPort, "127.0.0.1:2200"},
        {"127.0.0.1:2399", kBadPort, "127.0.0.1:2399"},
        {"10.0.0.5:2199", "", "10.0.0.5:2199"},
        {"10.0.0.5:2400", "", "10.0.0.5:2400"},
    };
    for (const Case& c : cases) {
        Station st;
        auto& setup = st.ws.fm_setup;
        setup.txt_TCP_ip_port.setText(c.typed);
        setup.ck_Use_TCP.setChecked(true);
        acq::ck_Use_TCP_Click(st.ws);
        SCOPED_TRACE(c.typed);
        EXPECT_EQ(st.ws.link.Glink_countdown, 2);
        EXPECT_EQ(st.ws.link.Gtcp_host + ":" + st.ws.link.Gtcp_port, c.taken);
        EXPECT_EQ(st.ws.link.Guse_tcp, !*c.box);
        EXPECT_EQ(setup.ck_Use_TCP.checked(), !*c.box);
        if (*c.box) {
            ASSERT_EQ(st.dialogs.boxes.size(), 1u);
            EXPECT_EQ(st.dialogs.boxes[0].title, "TCP SET ERROR");
            EXPECT_EQ(st.dialogs.boxes[0].text, c.box);
            EXPECT_EQ(setup.txt_TCP_ip_port.text(), "192.168.1.1:23");
        }
    }
}

TEST(Address, LookUpFileFindsTheUnit) {
    Station st;
    auto& setup = st.ws.fm_setup;
    // Types a unit number, presses and gives the text of the box that came up.
    auto look = [&](const char* typed, void (*press)(Workstation&) = acq::cmd_KW_lut_Click) {
        setup.txt_KW_lut.setText(typed);
        press(st.ws);
        if (st.dialogs.boxes.empty()) return std::string();
        auto b = st.dialogs.boxes.back();
        st.dialogs.boxes.clear();
        return (b.title + ": " + b.text).toStdString();
    };
    for (const char* typed : {"0000", "1000", "123"})
        EXPECT_EQ(look(typed), "LOOK UP TABLE: You will need to enter a correct 4 digit number "
                               "to use the look up table.")
            << typed;
    EXPECT_EQ(look("12345", acq::readlookupfile),
              "LOOK UP TABLE: The Value must be a 4 digit number");
    EXPECT_EQ(look("0042"), "LOOK UP TABLE: The Lookup table file is not found RDVlookup.txt");

    ASSERT_TRUE(testkit::WriteFile(st.folder.file("RDVlookup.txt"),
                                   "unit address port\r\n"
                                   "7 1.2.3 4\r\n" // ten characters or fewer: passed over
                                   "041 10.1.1.41 4001\r\n"
                                   "042 10.1.1.42 4002\r\n"
                                   "042 10.1.1.99 4099\r\n"));
    EXPECT_EQ(look("0007"), "LOOK UP TABLE: Serial number not found in look up table");

    // Found, Ethernet not chosen: only the address box changes.
    EXPECT_EQ(look("0042"), "");
    EXPECT_EQ(setup.txt_TCP_ip_port.text(), "10.1.1.42:4002");
    EXPECT_FALSE(st.ws.link.Guse_tcp);

    // Found with Ethernet chosen: the address is taken at once, through the
    // same check as a typed one.
    setup.ck_Use_TCP.setChecked(true);
    EXPECT_EQ(look("1041"), "");
    EXPECT_TRUE(st.ws.link.Guse_tcp);
    EXPECT_EQ(st.ws.link.Gtcp_port, "4001");
}

TEST(Address, TheLinkSwitches) {
    Station st;
    // Unticked: Ethernet is left. A host that short is not tried at all.
    st.ws.link.Guse_tcp = true;
    acq::ck_Use_TCP_Click(st.ws);
    EXPECT_FALSE(st.ws.link.Guse_tcp);
    st.ws.link.Guse_tcp = true;
    st.ws.link.Gtcp_host = "1.2.";
    st.ws.link.Gtcp_port = "23";
    st.ws.link.Glink_countdown = 17;
    acq::winsock_connect(st.ws);
    EXPECT_EQ(st.ws.link.Glink_countdown, 17); // a try, failed or not, sets 61
    st.ws.link.Guse_tcp = false;

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
    EXPECT_EQ(st.ws.link.Glink_countdown, 61);
    EXPECT_EQ(st.ws.link.Gcomm_port, 20);
    EXPECT_EQ(button.caption(), "Kettlewick Disconnected");

    // Choosing serial again leaves Ethernet and scans.
    st.ws.link.Guse_tcp = true;
    st.ws.link.Glink_mode = 0;
    st.ws.link.Gcomm_port = 3;
    acq::op_conn_using_serial_Click(st.ws);
    EXPECT_FALSE(st.ws.link.Guse_tcp);
    EXPECT_EQ(st.ws.link.Gcomm_port, 20);

    // Over Ethernet the scan is not the one to run.
    st.ws.link.Guse_tcp = true;
    st.ws.link.Gcomm_port = 3;
    acq::SerialFindKettlewick(st.ws);
    EXPECT_EQ(st.ws.link.Gcomm_port, 3);
}
