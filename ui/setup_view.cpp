#include "ui/setup_view.h"

#include "ui/binder.h"
#include "ui/control_widgets.h"
#include "ui/frame_columns.h"
#include "workstation/workstation.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace ui {

namespace {

// Read-outs whose control shows a bare number: the words a mud logger reads
// them by.
const struct {
    const char* name;
    const char* words;
} kReadOutWords[] = {
    {"lbl_Lag_Depth", "Lag Depth (ft)"},
    {"lbl_BU_STROKES", "Bottoms Up Strokes"},
    {"lbl_BU_MIN", "Bottoms Up Minutes"},
};

const char* readOutWords(const forms::Control& c) {
    for (const auto& r : kReadOutWords)
        if (c.name() == QLatin1String(r.name)) return r.words;
    return nullptr;
}

bool isTabControl(const forms::Control& c) {
    return c.name() == QLatin1String("SSTab1") || c.name() == QLatin1String("tab_setup");
}

// A frame with a tab control: the labels before the first array are the
// headings of the arrays, in order; each array gives one row on every page,
// its element for that page.
void buildTabbedFrame(Workstation& ws, forms::FmSetup& setup, forms::Control& tabControl,
                      const std::vector<forms::Control*>& controls, QGroupBox* box,
                      QVBoxLayout* column) {
    const int pages = static_cast<int>(tabControl.items().size());
    std::vector<forms::Control*> headings, rest;
    QStringList arrays;
    QMap<QString, std::vector<forms::Control*>> elements;
    for (forms::Control* c : controls) {
        if (c == &tabControl) continue;
        if (c->index() >= 0) {
            if (!arrays.contains(c->name())) arrays << c->name();
            elements[c->name()].push_back(c);
        } else if (arrays.isEmpty() && kindOf(*c) == Kind::Label) {
            headings.push_back(c);
        } else {
            rest.push_back(c);
        }
    }
    auto* tabs = new QTabWidget(box);
    // Every zone's tab in sight, none behind scroll arrows.
    tabs->setUsesScrollButtons(false);
    for (int p = 0; p < pages; ++p) {
        auto* page = new QWidget;
        auto* form = new QFormLayout(page);
        for (int a = 0; a < arrays.size(); ++a) {
            const auto& els = elements[arrays[a]];
            if (static_cast<int>(els.size()) != pages) continue;
            auto* words = new QLabel(page);
            if (a < static_cast<int>(headings.size())) {
                bindCaption(words, *headings[a]);
                // The heading stands on every page; the first is its own.
                if (p == 0) words->setObjectName(objectNameOf(*headings[a]));
            }
            form->addRow(words, makeBound(ws, setup, *els[p], page));
        }
        tabs->addTab(page, tabControl.items()[p]);
    }
    bind(tabs, tabControl);
    // Arrays that do not match the pages, and whatever follows, stand below.
    for (const QString& a : arrays)
        if (static_cast<int>(elements[a].size()) != pages)
            rest.insert(rest.end(), elements[a].begin(), elements[a].end());
    column->addWidget(tabs);
    auto* readOuts = new QFormLayout;
    column->addLayout(readOuts);
    std::vector<forms::Control*> others;
    for (forms::Control* c : rest) {
        if (const char* words = readOutWords(*c))
            readOuts->addRow(new QLabel(QString::fromLatin1(words)), makeBound(ws, setup, *c, box));
        else
            others.push_back(c);
    }
    rest = others;
    auto* grid = new QGridLayout;
    column->addLayout(grid);
    // The grid's widgets need the frame as parent before they are made.
    box->setLayout(column);
    layoutControls(ws, setup, rest, grid);
}

QGroupBox* buildFrame(Workstation& ws, forms::FmSetup& setup, const forms::FmSetup::Frame& f,
                      QWidget* parent) {
    auto* box = new QGroupBox(f.caption, parent);
    std::vector<forms::Control*> controls;
    forms::Control* tabControl = nullptr;
    for (forms::Control* c : f.controls) {
        // A frame control of its own carries the frame's changing title.
        if (kindOf(*c) == Kind::Frame && c->caption() == f.caption) {
            bind(box, *c);
            continue;
        }
        if (isTabControl(*c) && !tabControl) tabControl = c;
        controls.push_back(c);
    }
    if (tabControl) {
        buildTabbedFrame(ws, setup, *tabControl, controls, box, new QVBoxLayout);
        return box;
    }
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(3);
    layoutControls(ws, setup, controls, grid);
    return box;
}

// One page: its frames in columns as wide as the page allows; the page
// scrolls down when the screen is small.
QWidget* buildPage(Workstation& ws, forms::FmSetup& setup, const QString& tab) {
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* content = new FrameColumns;
    for (const auto& f : setup.frames())
        if (f.tab == tab) content->addFrame(buildFrame(ws, setup, f, content));
    scroll->setWidget(content);
    return scroll;
}

} // namespace

QSize SetupView::preferredSize(const QSize& room) const {
    QSize want;
    for (auto* page : findChildren<FrameColumns*>()) want = want.expandedTo(page->widestHint());
    // The tabs, the frame of the page, the window's margins and a scroll bar.
    want += QSize(64, tabs_->tabBar()->sizeHint().height() + 48);
    return want.expandedTo(minimumSizeHint()).boundedTo(room * 0.92);
}

SetupView::SetupView(Workstation& ws, QWidget* owner) : PanelWindow(ws.fm_setup, owner) {
    auto& setup = ws.fm_setup;
    auto* page = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    tabs_->setUsesScrollButtons(false);
    page->addWidget(tabs_);

    // The pages in the order of tab_setup, then any tab a frame names that
    // tab_setup does not.
    QStringList order = setup.tab_setup.items();
    for (const auto& f : setup.frames())
        if (!order.contains(f.tab)) order << f.tab;
    for (const QString& tab : order) tabs_->addTab(buildPage(ws, setup, tab), tab);
    bind(tabs_, setup.tab_setup);

    // A control that stands in no frame still shows, on a page of its own.
    std::vector<forms::Control*> loose;
    for (forms::Control* c : setup.controls())
        if (c != &setup.tab_setup && setup.frameOf(*c).isEmpty()) loose.push_back(c);
    if (!loose.empty()) {
        auto* extra = new QWidget;
        auto* grid = new QGridLayout(extra);
        layoutControls(ws, setup, loose, grid);
        grid->setRowStretch(grid->rowCount(), 1);
        tabs_->addTab(extra, tr("Other"));
    }
}

} // namespace ui
