#include "ui/floating_box.h"

#include "chart/floating_boxes.h"
#include "chart/interaction.h"
#include "ui/binder.h"
#include "ui/chart_canvas.h"
#include "ui/log.h"
#include "workstation/workstation.h"

#include <QLabel>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>

namespace ui {

FloatingBox::FloatingBox(Workstation& ws, forms::Control& model, ChartCanvas* canvas,
                         Release release)
    : QFrame(canvas), ws_(ws), model_(model), canvas_(canvas), release_(std::move(release)) {
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Raised);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(2);
    // The box takes the size its controls ask for, however large the canvas.
    column->setSizeConstraint(QLayout::SetFixedSize);

    strip_ = new QLabel(this);
    bindCaption(strip_, model);
    strip_->setObjectName(objectNameOf(model) + QStringLiteral("_title"));
    QFont bold = strip_->font();
    bold.setBold(true);
    strip_->setFont(bold);
    strip_->setContentsMargins(6, 2, 6, 2);
    strip_->setAutoFillBackground(true);
    QPalette title = strip_->palette();
    title.setColor(QPalette::Window, title.color(QPalette::Highlight));
    title.setColor(QPalette::WindowText, title.color(QPalette::HighlightedText));
    strip_->setPalette(title);
    strip_->setCursor(Qt::SizeAllCursor);
    strip_->installEventFilter(this);
    column->addWidget(strip_);

    body_ = new QWidget(this);
    column->addWidget(body_);

    bind(this, model);
    if (!release_)
        release_ = [&model](Workstation& w, int button, double x, double y) {
            chart::Box_MouseUp(w, model, button, x, y);
        };
    QPointer<FloatingBox> self(this);
    model.listen([self](const forms::Control&, forms::Prop p) {
        if (self && (p == forms::Prop::Place || p == forms::Prop::Visible)) self->place();
    });
    // A new size of the canvas changes its scale: the box stands anew.
    canvas->installEventFilter(this);
}

void FloatingBox::place() {
    if (!ws_.chart.graph || canvas_->width() <= 0) return;
    const chart::BoxPlace p = chart::PlaceInside(ws_, model_, model_.left(), model_.top());
    const QPoint at = canvas_->toPixels({p.Left, p.Top}).toPoint();
    // Rounding must not put the edge a pixel past the canvas either.
    move(std::clamp(at.x(), 0, std::max(0, canvas_->width() - width())),
         std::clamp(at.y(), 0, std::max(0, canvas_->height() - height())));
    if (isVisible()) raise();
}

void FloatingBox::tellSize() {
    const QPointF twips = canvas_->toTwips(QPointF(width(), height()));
    if (twips.isNull()) return;
    model_.setSize(twips.x(), twips.y());
}

void FloatingBox::resizeEvent(QResizeEvent* e) {
    QFrame::resizeEvent(e);
    tellSize();
    place();
}

bool FloatingBox::eventFilter(QObject* watched, QEvent* e) {
    if (watched == canvas_) {
        if (e->type() == QEvent::Resize) {
            tellSize();
            place();
        }
        return false;
    }
    if (watched == strip_) return dragEvent(e);
    return false;
}

bool FloatingBox::dragEvent(QEvent* e) {
    const auto type = e->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease)
        return false;
    auto* m = static_cast<QMouseEvent*>(e);
    const QPointF at = canvas_->toTwips(strip_->mapTo(canvas_, m->position()));
    const int button = m->button() == Qt::LeftButton ? chart::kLeftButton : 0;
    const int held = m->buttons() & Qt::LeftButton ? chart::kLeftButton : 0;
    try {
        if (type == QEvent::MouseButtonPress) {
            raise();
            chart::Box_MouseDown(ws_, model_, button, at.x(), at.y());
        } else if (type == QEvent::MouseMove) {
            chart::Box_MouseMove(ws_, model_, held, at.x(), at.y());
        } else {
            release_(ws_, button, at.x(), at.y());
        }
    } catch (...) {
        qCWarning(lcUi) << objectName() << "drag failed";
    }
    return true;
}

void FloatingBox::paintEvent(QPaintEvent* e) {
    // Always opaque, whatever colours the binding gives the box: the chart
    // must not show through between its controls.
    QPainter(this).fillRect(rect(), palette().color(QPalette::Window));
    QFrame::paintEvent(e);
}

void FloatingBox::mousePressEvent(QMouseEvent* e) {
    e->accept();
}
void FloatingBox::mouseReleaseEvent(QMouseEvent* e) {
    e->accept();
}
void FloatingBox::mouseDoubleClickEvent(QMouseEvent* e) {
    e->accept();
}

} // namespace ui
