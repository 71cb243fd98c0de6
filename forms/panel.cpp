#include "forms/panel.h"

namespace forms {

Control& Panel::add(Control& c, const QString& name, const QString& caption,
                    const QString& toolTip) {
    c.setName(name);
    if (!caption.isEmpty()) c.setCaption(caption);
    if (!toolTip.isEmpty()) c.setToolTip(toolTip);
    controls_.push_back(&c);
    return c;
}

Control* Panel::find(const QString& name, int index) const {
    for (Control* c : controls_)
        if (c->name() == name && c->index() == index) return c;
    return nullptr;
}

} // namespace forms
