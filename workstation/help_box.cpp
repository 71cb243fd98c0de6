// The information box: one scrolling log of messages for every long job.
#include "workstation/help_box.h"

#include "workstation/workstation.h"

namespace station {

namespace {
// Cut rarely, not on every line.
constexpr int kHelpHigh = 6000;
constexpr int kHelpLow = 5000;
} // namespace

void help_msg(Workstation& ws, const QString& text) {
    auto& box = ws.fm_help.txt_help;
    if (text.isEmpty()) {
        box.setText("");
        return;
    }
    QString all = box.text() + text + "\r\n";
    if (all.size() > kHelpHigh) all = all.right(kHelpLow);
    box.setText(all);
}

bool fm_help_QueryUnload(Workstation& ws) {
    ws.fm_help.form.setVisible(false);
    return true;
}

// The box is kept in the middle of the screen by its view, which knows the
// screen; the model has nothing to move.
void fm_help_Timer1_Timer(Workstation&) {}

} // namespace station
