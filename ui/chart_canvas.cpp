#include "ui/chart_canvas.h"

#include <QMouseEvent>
#include <QPainter>

namespace ui {

ChartCanvas::ChartCanvas(QWidget* parent) : QWidget(parent) {
    setObjectName("graph");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(320, 240);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::ClickFocus);
}

void ChartCanvas::setImage(const QImage& image) {
    image_ = image;
    update();
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

void ChartCanvas::mousePressEvent(QMouseEvent* e) {
    e->ignore();
}

} // namespace ui
