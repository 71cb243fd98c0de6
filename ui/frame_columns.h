#pragma once
// The frames of one setup page side by side in as many columns as the page's
// width allows (three at most), each frame going to the column that is
// shortest so far. The page re-deals its frames when its width changes, so
// nothing is cut on a small screen and nothing is squeezed on a large one.

#include <QWidget>
#include <vector>

class QHBoxLayout;

namespace ui {

class FrameColumns : public QWidget {
    Q_OBJECT
  public:
    explicit FrameColumns(QWidget* parent = nullptr);
    void addFrame(QWidget* frame);
    int columnCount() const { return columns_; }
    // The width the frames need dealt into n columns.
    int widthFor(int n) const;
    // The size of the page with the most columns it may have.
    QSize widestHint() const;
    // One column: the narrowest the page can be before it scrolls sideways.
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* e) override;

  private:
    // Frame indexes per column.
    std::vector<std::vector<int>> deal(int n) const;
    void arrange(int n);
    std::vector<QWidget*> frames_;
    QHBoxLayout* row_;
    int columns_ = 0;
};

} // namespace ui
