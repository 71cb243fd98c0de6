#include "ui/secure_view.h"

#include "ui/control_widgets.h"
#include "workstation/workstation.h"

#include <QFormLayout>
#include <QLineEdit>

namespace ui {

SecureView::SecureView(Workstation& ws, QWidget* owner) : PanelWindow(ws.fm_secure, owner) {
    auto& s = ws.fm_secure;
    auto* form = new QFormLayout(this);
    form->addRow(tr("User Name"), makeBound(ws, s, s.txt_username, this));
    auto* pwe = qobject_cast<QLineEdit*>(makeBound(ws, s, s.txt_pwe, this));
    pwe->setEchoMode(QLineEdit::Password);
    form->addRow(tr("Password"), pwe);
    form->addRow(makeBound(ws, s, s.cmd_send_key, this));
}

} // namespace ui
