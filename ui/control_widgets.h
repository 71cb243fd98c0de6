#pragma once
// Widgets made from model controls by the kind their name says (cmd_ button,
// txt_ text box, lbl_ label, ck_/ch_/chk_ check box, op_ option, pg_ progress
// bar, fr_ frame ...), and the plain grid that lays a list of them out, so a
// control added to a model shows up without a change of its view.

#include <QString>
#include <vector>

class QGridLayout;
class QWidget;
class Workstation;

namespace forms {
class Control;
class Panel;
} // namespace forms

namespace ui {

enum class Kind {
    Button,
    LineEdit,
    TextArea,
    Label,
    CheckBox,
    Option,
    Progress,
    Frame,
    List,
    Combo,
    None
};

Kind kindOf(const forms::Control& c);

// The widget of control c of panel, bound to it and to its handlers.
QWidget* makeBound(Workstation& ws, const forms::Panel& panel, forms::Control& c, QWidget* parent);

// Lays out controls in rows: a text box without words of its own goes beside
// the check box, label or button before it; a text box with a caption gets
// the caption beside it; arrays of the same length make a table, one row per
// index. Frames are left out (they are what the caller groups by).
void layoutControls(Workstation& ws, const forms::Panel& panel,
                    const std::vector<forms::Control*>& controls, QGridLayout* grid);

} // namespace ui
