#include "ui/frame_columns.h"

#include <QHBoxLayout>
#include <QResizeEvent>
#include <QVBoxLayout>

namespace ui {

namespace {
constexpr int kMostColumns = 3;
} // namespace

FrameColumns::FrameColumns(QWidget* parent) : QWidget(parent), row_(new QHBoxLayout(this)) {}

void FrameColumns::addFrame(QWidget* frame) {
    frame->setParent(this);
    frames_.push_back(frame);
    arrange(std::min<int>(kMostColumns, static_cast<int>(frames_.size())));
}

std::vector<std::vector<int>> FrameColumns::deal(int n) const {
    std::vector<std::vector<int>> cols(std::max(1, n));
    std::vector<int> heights(cols.size(), 0);
    for (int i = 0; i < static_cast<int>(frames_.size()); ++i) {
        const auto shortest = std::min_element(heights.begin(), heights.end()) - heights.begin();
        cols[shortest].push_back(i);
        heights[shortest] += frames_[i]->sizeHint().height();
    }
    return cols;
}

int FrameColumns::widthFor(int n) const {
    const QMargins m = row_->contentsMargins();
    int width = m.left() + m.right();
    for (const auto& col : deal(n)) {
        int widest = 0;
        for (int i : col) widest = std::max(widest, frames_[i]->sizeHint().width());
        width += widest + row_->spacing();
    }
    return width;
}

QSize FrameColumns::widestHint() const {
    const int n = std::min<int>(kMostColumns, static_cast<int>(frames_.size()));
    int tallest = 0;
    for (const auto& col : deal(n)) {
        int h = 0;
        for (int i : col) h += frames_[i]->sizeHint().height() + row_->spacing();
        tallest = std::max(tallest, h);
    }
    const QMargins m = row_->contentsMargins();
    return {widthFor(n), tallest + m.top() + m.bottom()};
}

QSize FrameColumns::minimumSizeHint() const {
    int widest = 0;
    for (QWidget* f : frames_) widest = std::max(widest, f->minimumSizeHint().width());
    const QMargins m = row_->contentsMargins();
    return {widest + m.left() + m.right(), QWidget::minimumSizeHint().height()};
}

void FrameColumns::arrange(int n) {
    if (n == columns_) return;
    columns_ = n;
    while (QLayoutItem* item = row_->takeAt(0)) {
        if (QLayout* l = item->layout()) {
            while (QLayoutItem* inner = l->takeAt(0)) delete inner;
        }
        delete item;
    }
    for (const auto& col : deal(n)) {
        auto* column = new QVBoxLayout;
        for (int i : col) column->addWidget(frames_[i]);
        column->addStretch(1);
        row_->addLayout(column);
    }
    row_->addStretch(1);
}

void FrameColumns::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    int n = std::min<int>(kMostColumns, static_cast<int>(frames_.size()));
    while (n > 1 && widthFor(n) > e->size().width()) --n;
    arrange(std::max(1, n));
}

} // namespace ui
