#include "ui/chart_canvas.h"

#include "chart/interaction.h"
#include "ui/log.h"
#include "workstation/workstation.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace ui {

namespace {

int ButtonMask(Qt::MouseButtons b) {
    return (b & Qt::LeftButton ? chart::kLeftButton : 0) |
           (b & Qt::RightButton ? chart::kRightButton : 0);
}

int ShiftOf(Qt::KeyboardModifiers m) {
    return m & Qt::ShiftModifier ? chart::kShiftMask : 0;
}

} // namespace

ChartCanvas::ChartCanvas(QWidget* parent) : QWidget(parent) {
    setObjectName("graph");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(320, 240);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
}

void ChartCanvas::setImage(const QImage& image) {
    image_ = image;
    update();
}

QPointF ChartCanvas::toTwips(QPointF px) const {
    if (!ws_ || !ws_->chart.graph || width() <= 0 || height() <= 0) return {};
    const auto& g = *ws_->chart.graph;
    return {px.x() * g.Width() / width(), px.y() * g.Height() / height()};
}

QPointF ChartCanvas::toPixels(QPointF twips) const {
    if (!ws_ || !ws_->chart.graph) return {};
    const auto& g = *ws_->chart.graph;
    if (g.Width() <= 0 || g.Height() <= 0) return {};
    return {twips.x() * width() / g.Width(), twips.y() * height() / g.Height()};
}

void ChartCanvas::paintEvent(QPaintEvent* e) {
    QPainter p(this);
    if (image_.isNull()) {
        p.fillRect(e->rect(), palette().color(QPalette::Base));
        return;
    }
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(rect(), image_);
}

void ChartCanvas::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    if (resized) resized(size());
}

template <class F> void ChartCanvas::handle(F f) {
    try {
        f(*ws_);
    } catch (...) {
        qCWarning(lcUi) << "chart mouse handler failed";
    }
    showCursor();
}

void ChartCanvas::showCursor() {
    if (ws_->chart.MousePointer == chart::kUpDownArrow)
        setCursor(Qt::SizeVerCursor);
    else
        unsetCursor();
}

void ChartCanvas::mousePressEvent(QMouseEvent* e) {
    const int button = ButtonMask(e->button());
    if (!ws_ || !button) {
        e->ignore();
        return;
    }
    const QPointF at = toTwips(e->position());
    const int shift = ShiftOf(e->modifiers());
    handle([&](Workstation& ws) {
        // A press on a text box is the box's, unless one is being placed.
        const int box = button == chart::kLeftButton && ws.chart.PlacingTextBox == 0
                            ? chart::TextBoxAt(ws, at.x(), at.y())
                            : 0;
        if (box > 0)
            chart::lbl_insert_txt_Click(ws, box);
        else
            chart::graph_MouseDown(ws, button, shift, at.x(), at.y());
    });
    e->accept();
}

void ChartCanvas::mouseMoveEvent(QMouseEvent* e) {
    if (!ws_) return QWidget::mouseMoveEvent(e);
    const QPointF at = toTwips(e->position());
    const int buttons = ButtonMask(e->buttons());
    const int shift = ShiftOf(e->modifiers());
    handle([&](Workstation& ws) { chart::graph_MouseMove(ws, buttons, shift, at.x(), at.y()); });
}

void ChartCanvas::mouseReleaseEvent(QMouseEvent* e) {
    const int button = ButtonMask(e->button());
    if (!ws_ || !button) return QWidget::mouseReleaseEvent(e);
    const QPointF at = toTwips(e->position());
    const int shift = ShiftOf(e->modifiers());
    handle([&](Workstation& ws) { chart::graph_MouseUp(ws, button, shift, at.x(), at.y()); });
    e->accept();
}

void ChartCanvas::mouseDoubleClickEvent(QMouseEvent* e) {
    if (!ws_ || e->button() != Qt::LeftButton) return QWidget::mouseDoubleClickEvent(e);
    const QPointF at = toTwips(e->position());
    handle([&](Workstation& ws) {
        ws.chart.PointerX = at.x();
        ws.chart.PointerY = at.y();
        chart::graph_DblClick(ws);
    });
    e->accept();
}

void ChartCanvas::keyPressEvent(QKeyEvent* e) {
    if (!ws_ || e->key() != Qt::Key_Escape) return QWidget::keyPressEvent(e);
    handle([](Workstation& ws) { chart::graph_KeyPress(ws, chart::kEscape); });
}

void ChartCanvas::keyReleaseEvent(QKeyEvent* e) {
    if (!ws_) return QWidget::keyReleaseEvent(e);
    // Some systems still report the shift key down in its own release.
    const int shift = e->key() == Qt::Key_Shift ? 0 : ShiftOf(e->modifiers());
    handle([&](Workstation& ws) { chart::graph_KeyUp(ws, e->key(), shift); });
}

} // namespace ui
