#pragma once
// The login panel that opens two-way communication with the instrument.

#include "forms/panel.h"

namespace forms {

struct FmSecure : Panel {
    FmSecure() : Panel("fm_secure", "Unlock Connection") {
        add(txt_username, "txt_username");
        add(txt_pwe, "txt_pwe");
        add(cmd_send_key, "cmd_send_key", "Send Key");
        form.setVisible(false);
    }
    Control txt_username;
    Control txt_pwe;
    Control cmd_send_key;
};

} // namespace forms
