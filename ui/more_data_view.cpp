#include "ui/more_data_view.h"

#include "ui/binder.h"
#include "ui/control_widgets.h"
#include "ui/handlers.h"
#include "workstation/workstation.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace ui {

namespace {

constexpr int kColumns = 7;

// The read-outs below the field table, each with its frame, and how much of
// the row each takes.
const struct {
    const char* label;
    int stretch;
} kReadOuts[] = {
    {"lbl_err_desc", 3},
    {"lbl_Bottoms_Up", 1},
    {"lbl_current_lag_depth", 2},
    {"lbl_bit_depth", 2},
};

QLabel* valueLabel(Workstation& ws, forms::MoreData& md, forms::Control& c, QWidget* parent) {
    auto* l = qobject_cast<QLabel*>(makeBound(ws, md, c, parent));
    l->setAlignment(Qt::AlignCenter);
    QFont f = l->font();
    f.setPointSizeF(f.pointSizeF() * 1.3);
    f.setBold(true);
    l->setFont(f);
    // Room for the widest reading (the date) from the start, so the columns
    // do not shift as the readings change.
    l->setMinimumWidth(l->fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) + 4);
    return l;
}

QGroupBox* framed(Workstation& ws, forms::MoreData& md, forms::Control& label, QWidget* parent) {
    auto* box = new QGroupBox(parent);
    bind(box, md.frameOf(label.name()));
    auto* v = new QVBoxLayout(box);
    v->setContentsMargins(6, 2, 6, 4);
    v->addWidget(valueLabel(ws, md, label, box));
    return box;
}

// A label that acts as a link at the foot of the viewer.
QLabel* footLink(Workstation& ws, forms::MoreData& md, forms::Control& c, QWidget* parent) {
    auto* l = qobject_cast<QLabel*>(makeBound(ws, md, c, parent));
    QFont f = l->font();
    f.setUnderline(true);
    l->setFont(f);
    l->setCursor(Qt::PointingHandCursor);
    return l;
}

} // namespace

MoreDataView::MoreDataView(Workstation& ws, QWidget* owner) : PanelWindow(ws.more_data, owner) {
    auto& md = ws.more_data;
    auto* page = new QVBoxLayout(this);

    auto* fields = new QGridLayout;
    fields->setSpacing(4);
    int i = 0;
    for (const auto& f : forms::MoreData::fieldLabels()) {
        fields->addWidget(framed(ws, md, md.*(f.label), this), i / kColumns, i % kColumns);
        ++i;
    }
    page->addLayout(fields);

    auto* readOuts = new QHBoxLayout;
    for (const auto& r : kReadOuts)
        if (forms::Control* c = md.find(QLatin1String(r.label)))
            readOuts->addWidget(framed(ws, md, *c, this), r.stretch);
    page->addLayout(readOuts);

    auto* live = new QHBoxLayout;
    auto* terminal = qobject_cast<QPlainTextEdit*>(makeBound(ws, md, md.text_window, this));
    terminal->setReadOnly(true);
    // Read-only to the editor, but it takes the keys: they go to the instrument.
    terminal->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    terminal->setFocusPolicy(Qt::StrongFocus);
    terminal->setFont(QFont(QStringLiteral("DejaVu Sans Mono"), font().pointSize()));
    terminal->setLineWrapMode(QPlainTextEdit::NoWrap);
    terminal->setMinimumHeight(terminal->fontMetrics().lineSpacing() * 10);
    live->addWidget(terminal, 3);
    auto* wits = makeBound(ws, md, md.wits_info, this);
    // Room for an item's number, a long name and its value.
    wits->setMinimumWidth(
        fontMetrics().horizontalAdvance(QStringLiteral("0000  Pump Stroke Count (cum)  123456.7")) +
        24);
    live->addWidget(wits, 2);
    page->addLayout(live, 1);

    auto* foot = new QHBoxLayout;
    foot->addWidget(makeBound(ws, md, md.lbl_Time_Since_Last_Rop_01, this));
    foot->addStretch(1);
    foot->addWidget(footLink(ws, md, md.lbl_open_errors, this));
    foot->addSpacing(24);
    foot->addWidget(footLink(ws, md, md.lbl_help, this));
    page->addLayout(foot);
}

} // namespace ui
