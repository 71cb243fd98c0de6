#pragma once
// The WITS panel: the local WITS serial link and the raw streams.

#include "forms/panel.h"

namespace forms {

struct FmWits : Panel {
    FmWits() : Panel("fm_WITS", "SETUP WITS") {
        add(ck_Use_Local_WITS, "ck_Use_Local_WITS",
            "Use Local WITS Through Serial Port Instead Of Kettlewick");
        add(ck_KeepWITSConnected, "ck_KeepWITSConnected", "Keep Wits Connected Aggressively",
            "If no WITS, then this will look at all the serial ports for a WITS stream every "
            "60 seconds");
        add(cmd_Search_For_WITS, "cmd_Search_For_WITS", "SEARCH FOR AND OPEN WITS PORT")
            .setEnabled(false);
        add(txt_WITS_baudrate, "txt_WITS_baudrate", {}, "The most common baud rate is 9600")
            .setText("9600");
        txt_WITS_baudrate.setEnabled(false);
        add(txt_Raw_WITS_In, "txt_Raw_WITS_In", "WITS COMING IN FROM EDR").setText("WITS IN\r\n");
        txt_Raw_WITS_In.setEnabled(false);
        add(txt_Raw_WITS_Out, "txt_Raw_WITS_Out", "WITS GOING OUT TO EDR").setEnabled(false);
        form.setVisible(false);
    }
    Control ck_Use_Local_WITS;
    Control ck_KeepWITSConnected;
    Control cmd_Search_For_WITS;
    Control txt_WITS_baudrate;
    Control txt_Raw_WITS_In;
    Control txt_Raw_WITS_Out;
};

} // namespace forms
