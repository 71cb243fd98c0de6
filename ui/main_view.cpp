#include "ui/main_view.h"

#include "acquisition/control_box.h"
#include "acquisition/startup.h"
#include "chart/chart.h"
#include "ui/binder.h"
#include "ui/chart_canvas.h"
#include "ui/control_widgets.h"
#include "ui/floating_box.h"
#include "ui/log.h"
#include "workstation/image_canvas.h"
#include "workstation/workstation.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSet>
#include <QTimer>

namespace ui {

namespace {

// The control box from top to bottom: one control to a row, or two side by
// side. An empty name is a rule between two groups of rows.
const struct {
    const char* left;
    const char* right;
} kControlBox[] = {
    {"cmd_comm1", "cmd_WITS_info"},
    {"cmd_refresh", "txt_refresh_timer"},
    {"cmd_redraw_chart", "cmd_reset_view"},
    {"cmd_page_up", "cmd_page_down"},
    {"cmd_zoom_in", "cmd_zoom_out"},
    {"cmd_off_bottom_overide", "cmd_pumps"},
    {"lbl_Line_Lag", "txt_TotalStr"},
    {"cmd_setup", "cmd_moredata"},
    {"", nullptr},
    {"txt_KW_err", nullptr},
    {"txt_message", nullptr},
    {"", nullptr},
    {"txt_db_path", nullptr},
    {"lbl_lock_Level", "CK_Import_OMD"},
    {"cmd_new_db", "cmd_open_db"},
    {"cmd_save_database", "cmdCompact"},
    {"cmd_sync_kettlewick", "cmd_gen_log_files"},
    {"cmd_export_txt", "cmd_export_to_csv"},
    {"cmd_import_txt", nullptr},
};

// Twips across the chart image: the plot, the key right of it and a margin.
constexpr double kCanvasTwips = 11900;

bool isAlarmBox(const char* name) {
    return QLatin1String(name) == QLatin1String("txt_KW_err");
}

// Boxes the operator reads but does not type in.
const char* const kReadOnly[] = {"txt_KW_err", "txt_TotalStr", "txt_db_path"};

} // namespace

MainView::MainView(Workstation& ws) : ws_(ws) {
    auto& fm = ws.fm_Gas_Chart;
    setObjectName(fm.name());
    setWindowTitle(fm.form.caption());
    QPointer<MainView> self(this);
    fm.form.listen([self](const forms::Control& form, forms::Prop p) {
        if (self && p == forms::Prop::Caption) self->setWindowTitle(form.caption());
    });

    auto* central = new QWidget(this);
    auto* row = new QHBoxLayout(central);
    row->setContentsMargins(6, 6, 6, 6);
    canvas_ = new ChartCanvas(central);
    canvas_->attach(ws);
    row->addWidget(canvas_, 1);
    attachCanvas();
    buildControlBox();
    setCentralWidget(central);
}

void MainView::attachCanvas() {
    // The chart draws on an image of the widget's size; the first draw
    // comes before the window is shown, at a size it is likely to have.
    auto image = std::make_shared<station::ImageCanvas>(1000, 700, kCanvasTwips);
    QPointer<ChartCanvas> view(canvas_);
    image->shown = [view](const QImage& picture) {
        if (view) view->setImage(picture);
    };
    ws_.chart.graph = image;
    chart::ApplyBackground(ws_);
    redraw_ = new QTimer(this);
    redraw_->setSingleShot(true);
    redraw_->setInterval(400);
    connect(redraw_, &QTimer::timeout, this, &MainView::redrawAfterResize);
    canvas_->resized = [this](QSize) { redraw_->start(); };
}

void MainView::redrawAfterResize() {
    auto* image = dynamic_cast<station::ImageCanvas*>(ws_.chart.graph.get());
    if (!image || image->image().size() == canvas_->size()) return;
    if (ws_.chart.Gchart_busy) {
        // A draw is under way: try again when it is over.
        redraw_->start();
        return;
    }
    image->resize(canvas_->width(), canvas_->height());
    try {
        chart::make_chart(ws_);
    } catch (...) {
        qCWarning(lcUi) << "chart redraw failed";
    }
}

void MainView::buildControlBox() {
    auto& fm = ws_.fm_Gas_Chart;
    auto* frame6 = new FloatingBox(ws_, fm.Frame6, canvas_, &acq::Frame6_MouseUp);
    QWidget* box = frame6->body();
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(4, 2, 4, 4);
    grid->setVerticalSpacing(4);

    QSet<const forms::Control*> placed{&fm.Frame6, &fm.ln_selecter};
    auto make = [&](const char* name) -> QWidget* {
        forms::Control* c = fm.find(QLatin1String(name));
        if (!c) return nullptr;
        placed.insert(c);
        QWidget* w = makeBound(ws_, fm, *c, box);
        for (const char* ro : kReadOnly)
            if (auto* le = qobject_cast<QLineEdit*>(w); le && c->name() == QLatin1String(ro))
                le->setReadOnly(true);
        return w;
    };

    int r = 0;
    for (const auto& slot : kControlBox) {
        if (!*slot.left) {
            auto* rule = new QFrame(box);
            rule->setFrameShape(QFrame::HLine);
            rule->setFrameShadow(QFrame::Sunken);
            grid->addWidget(rule, r++, 0, 1, 2);
            continue;
        }
        QWidget* left = make(slot.left);
        QWidget* right = slot.right ? make(slot.right) : nullptr;
        if (left && right) {
            grid->addWidget(left, r, 0);
            grid->addWidget(right, r, 1);
        } else if (left || right) {
            grid->addWidget(left ? left : right, r, 0, 1, 2);
        }
        if (isAlarmBox(slot.left) && left) {
            // The instrument's alarm is the first thing to read on the box.
            QFont f = left->font();
            f.setBold(true);
            f.setPointSizeF(f.pointSizeF() * 1.15);
            left->setFont(f);
        }
        if (auto* msg = qobject_cast<QPlainTextEdit*>(left)) {
            // Five lines of news: the box floats over the chart and must
            // leave most of it in sight on a small screen.
            msg->setFixedHeight(msg->fontMetrics().lineSpacing() * 5 + 2 * msg->frameWidth() + 8);
        }
        ++r;
    }

    // The chart's own commands side by side on one row.
    auto* chartRow = new QHBoxLayout;
    for (const char* n : {"cmd_ins_text", "cmd_del_txt_box", "cmd_print"})
        if (QWidget* w = make(n)) chartRow->addWidget(w);
    grid->addLayout(chartRow, r++, 0, 1, 2);

    // The two boxes of a chosen place on the chart float over it on their
    // own, where the chart opens them.
    auto chosenPlaceBox = [&](forms::Control& model, std::initializer_list<const char*> names) {
        auto* group = new FloatingBox(ws_, model, canvas_);
        placed.insert(&model);
        auto* inner = new QGridLayout(group->body());
        inner->setContentsMargins(4, 2, 4, 4);
        std::vector<forms::Control*> commands;
        for (forms::Control* c : fm.controls())
            for (const char* n : names)
                if (c->name() == QLatin1String(n) && !placed.contains(c)) {
                    commands.push_back(c);
                    placed.insert(c);
                }
        layoutControls(ws_, fm, commands, inner);
        group->place();
    };
    chosenPlaceBox(fm.sel_type,
                   {"cmd_Mark_GU", "cmd_del_sel_ticks", "cmd_restore_geo", "cmd_restore_all_geo",
                    "cmd_view_cg", "cmd_del_from_db", "cmd_cancel_sel"});
    chosenPlaceBox(fm.Geo_edit,
                   {"cmd_add_foot_tick", "cmd_rem_foot_tick", "cmd_renum_geo", "op_renum",
                    "ck_renum_st_at", "txt_renum_start", "cmd_insert_ft", "cmd_cancel_geo"});

    // Controls the box does not place yet still show, below the rest.
    std::vector<forms::Control*> others;
    for (forms::Control* c : fm.controls())
        if (!placed.contains(c)) others.push_back(c);
    if (!others.empty()) layoutControls(ws_, fm, others, grid);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    frame6->place();
}

void MainView::closeEvent(QCloseEvent* e) {
    // Already closed down (the system asked the program to stop).
    if (ws_.closing) {
        e->accept();
        return;
    }
    bool leave = false;
    try {
        leave = acq::Form_Unload(ws_);
    } catch (const std::exception& ex) {
        qCWarning(lcUi) << "exit failed:" << ex.what();
    } catch (...) {
        qCWarning(lcUi) << "exit failed";
    }
    if (!leave) {
        e->ignore();
        return;
    }
    e->accept();
    QCoreApplication::quit();
}

void MainView::changeEvent(QEvent* e) {
    QMainWindow::changeEvent(e);
    if (e->type() != QEvent::WindowStateChange) return;
    ws_.fm_Gas_Chart.minimized = isMinimized();
    ws_.fm_Gas_Chart.form.setCaption(acq::MainTitle(ws_));
}

void MainView::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton && e->button() != Qt::RightButton) {
        QMainWindow::mousePressEvent(e);
        return;
    }
    try {
        acq::fm_Gas_Chart_MouseDown(ws_, e->button() == Qt::LeftButton);
    } catch (...) {
        qCWarning(lcUi) << "mouse press handler failed";
    }
    e->accept();
}

} // namespace ui
