#include "ui/control_widgets.h"

#include "forms/panel.h"
#include "ui/binder.h"
#include "ui/handlers.h"
#include "ui/option_group.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace ui {

namespace {

// Names that do not say their kind by a prefix.
const struct {
    const char* name;
    Kind kind;
} kByName[] = {
    {"text_window", Kind::TextArea},     {"wits_info", Kind::List},
    {"wav_test", Kind::Button},          {"Manual_Gamma_Lag", Kind::CheckBox},
    {"pgbar", Kind::Progress},           {"txt_message", Kind::TextArea},
    {"txt_help", Kind::TextArea},        {"txt_stats_output", Kind::TextArea},
    {"txt_stats", Kind::TextArea},       {"txt_Zone1_text", Kind::TextArea},
    {"txt_Raw_WITS_In", Kind::TextArea}, {"txt_Raw_WITS_Out", Kind::TextArea},
};

// Prefixes of the control names, tried in order; case does not matter
// (CK_Import_OMD is a check box like ck_rop).
const struct {
    const char* prefix;
    Kind kind;
} kByPrefix[] = {
    {"cmd", Kind::Button},    {"txt_", Kind::LineEdit}, {"lbl", Kind::Label},
    {"chk_", Kind::CheckBox}, {"ck_", Kind::CheckBox},  {"ch_", Kind::CheckBox},
    {"op_", Kind::Option},    {"op1_", Kind::Option},   {"pg_", Kind::Progress},
    {"fr_", Kind::Frame},     {"fra_", Kind::Frame},    {"Frame", Kind::Frame},
    {"cmb_", Kind::Combo},    {"lst_", Kind::List},     {"ln_", Kind::None},
    {"tmr", Kind::None},      {"tab_", Kind::None},     {"SSTab", Kind::None},
};

bool wordsOnly(Kind k) {
    return k == Kind::CheckBox || k == Kind::Label || k == Kind::Button || k == Kind::Option;
}

} // namespace

Kind kindOf(const forms::Control& c) {
    const QString& n = c.name();
    for (const auto& e : kByName)
        if (n == QLatin1String(e.name)) return e.kind;
    for (const auto& e : kByPrefix)
        if (n.startsWith(QLatin1String(e.prefix), Qt::CaseInsensitive)) {
            if (e.kind == Kind::LineEdit && (c.text().contains('\n') || c.text().contains('\r')))
                return Kind::TextArea;
            return e.kind;
        }
    return Kind::Label;
}

QWidget* makeBound(Workstation& ws, const forms::Panel& panel, forms::Control& c, QWidget* parent) {
    QWidget* w = nullptr;
    switch (kindOf(c)) {
    case Kind::Button:
        w = new QPushButton(parent);
        break;
    case Kind::LineEdit: {
        auto* e = new QLineEdit(parent);
        // Room for a depth, a scale such as "0 to 300" or a four digit code.
        e->setMinimumWidth(e->fontMetrics().horizontalAdvance(QStringLiteral("0000 to 0000")));
        w = e;
        break;
    }
    case Kind::TextArea: {
        auto* area = new QPlainTextEdit(parent);
        // The statistics report lines its tally up in columns: a whole tally
        // line is in view.
        if (c.name() == QLatin1String("txt_stats_output")) {
            area->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
            area->setLineWrapMode(QPlainTextEdit::NoWrap);
            area->setMinimumWidth(area->fontMetrics().horizontalAdvance(QString(80, u'0')));
            area->setMinimumHeight(area->fontMetrics().lineSpacing() * 16);
        }
        area->setMinimumHeight(
            std::max(area->minimumHeight(), area->fontMetrics().lineSpacing() * 4));
        w = area;
        break;
    }
    case Kind::Label: {
        auto* l = new QLabel(parent);
        l->setWordWrap(c.caption().size() > 48);
        // A colour label is a swatch to click: it needs a size of its own.
        if (c.name().endsWith(QLatin1String("_color")))
            l->setMinimumSize(l->fontMetrics().horizontalAdvance(QStringLiteral("MMMM")),
                              l->fontMetrics().height());
        w = l;
        break;
    }
    case Kind::CheckBox:
        w = new QCheckBox(parent);
        break;
    case Kind::Option:
        if (c.items().isEmpty())
            w = new QRadioButton(parent);
        else
            w = new OptionGroup(parent);
        break;
    case Kind::Progress:
        w = new QProgressBar(parent);
        break;
    case Kind::Frame:
        w = new QGroupBox(parent);
        break;
    case Kind::List:
        w = new QListWidget(parent);
        break;
    case Kind::Combo: {
        auto* cb = new QComboBox(parent);
        cb->setEditable(true);
        w = cb;
        break;
    }
    case Kind::None:
        return nullptr;
    }
    bind(w, c, eventsFor(ws, panel, c));
    return w;
}

void layoutControls(Workstation& ws, const forms::Panel& panel,
                    const std::vector<forms::Control*>& controls, QGridLayout* grid) {
    constexpr int kCells = 3;
    QWidget* host = grid->parentWidget();
    int row = grid->rowCount();
    // The row that text boxes without words may still join, and its next
    // free cell; -1 when there is none.
    int openRow = -1;
    int openCell = 0;
    QMap<QString, QButtonGroup*> optionGroups;
    QStringList arraysPlaced;

    auto groupOption = [&](QWidget* w, const forms::Control& c) {
        auto* rb = qobject_cast<QRadioButton*>(w);
        if (!rb) return;
        // Elements of one array are one choice; single options of one list
        // are one choice.
        const QString key = c.index() >= 0 ? c.name() : QStringLiteral("-");
        QButtonGroup*& g = optionGroups[key];
        if (!g) g = new QButtonGroup(host);
        g->addButton(rb);
    };
    auto lengthOf = [&](const QString& name) {
        int n = 0;
        for (const forms::Control* d : controls)
            if (d->name() == name) ++n;
        return n;
    };
    auto placeArrays = [&](const forms::Control& first) {
        // Every array of this list with as many elements goes in one table,
        // one row per element.
        const int length = lengthOf(first.name());
        QStringList names;
        for (const forms::Control* c : controls)
            if (c->index() >= 0 && !names.contains(c->name()) &&
                !arraysPlaced.contains(c->name()) && lengthOf(c->name()) == length)
                names << c->name();
        for (int k = 0; k < length; ++k) {
            int col = 0;
            for (const QString& name : names) {
                int seen = 0;
                for (forms::Control* c : controls) {
                    if (c->name() != name || seen++ != k) continue;
                    if (QWidget* w = makeBound(ws, panel, *c, host)) {
                        groupOption(w, *c);
                        grid->addWidget(w, row, col++);
                    }
                }
            }
            ++row;
        }
        arraysPlaced << names;
        openRow = -1;
    };

    for (forms::Control* c : controls) {
        const Kind kind = kindOf(*c);
        if (kind == Kind::Frame || kind == Kind::None) continue;
        if (c->index() >= 0) {
            if (!arraysPlaced.contains(c->name())) placeArrays(*c);
            continue;
        }
        const bool editor = kind == Kind::LineEdit || kind == Kind::Combo;
        // A box or read-out without words of its own stands beside the
        // words before it.
        const bool wordless = (editor || kind == Kind::Label) && c->caption().isEmpty();
        if (wordless && openRow >= 0 && openCell < kCells) {
            grid->addWidget(makeBound(ws, panel, *c, host), openRow, openCell++);
            continue;
        }
        openRow = -1;
        if ((editor || kind == Kind::TextArea || kind == Kind::List) && !c->caption().isEmpty()) {
            auto* words = new QLabel(host);
            bindCaption(words, *c);
            if (editor) {
                grid->addWidget(words, row, 0);
                grid->addWidget(makeBound(ws, panel, *c, host), row, 1);
                openRow = row++;
                openCell = 2;
                continue;
            }
            grid->addWidget(words, row++, 0, 1, kCells);
        }
        QWidget* w = makeBound(ws, panel, *c, host);
        groupOption(w, *c);
        if (wordsOnly(kind)) {
            grid->addWidget(w, row, 0);
            openRow = row++;
            openCell = 1;
        } else {
            grid->addWidget(w, row++, 0, 1, kCells);
        }
    }
    // Only columns that hold a control of their own share the room; a
    // column with a stretch but no control would take room from the rest.
    bool used[kCells] = {};
    for (int i = 0; i < grid->count(); ++i) {
        int r = 0, col = 0, rows = 0, cols = 0;
        grid->getItemPosition(i, &r, &col, &rows, &cols);
        if (cols == 1 && col < kCells) used[col] = true;
    }
    for (int col = 1; col < kCells; ++col) grid->setColumnStretch(col, used[col] ? 1 : 0);
}

} // namespace ui
