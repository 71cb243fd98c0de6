#pragma once
// One observable control of a panel model: the state a screen control holds,
// and a change signal a view (or a test) can follow. The logic reads and
// writes these exactly where the program reads and writes its controls,
// colours included.

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace forms {

// Colours are 24-bit numbers with red in the low byte.
namespace color {
constexpr long Red = 255;
constexpr long Green = 65280;
constexpr long Yellow = 65535;
constexpr long Orange = 33023;
constexpr long Grey = 0xE0E0E0;
constexpr long Black = 0;
constexpr long White = 0xFFFFFF;
constexpr long Button = -1; // the toolkit's own button face
} // namespace color

enum class Prop {
    Text,
    Caption,
    Value,
    BackColor,
    ForeColor,
    Visible,
    Enabled,
    ToolTip,
    Range,
    Items,
    Place
};

class Control {
  public:
    using Listener = std::function<void(const Control&, Prop)>;

    Control() = default;
    explicit Control(QString name, QString caption = {}, QString toolTip = {})
        : name_(std::move(name)), caption_(std::move(caption)), toolTip_(std::move(toolTip)) {}
    // Listeners belong to one instance; a copy starts without them.
    Control(const Control& o) { copyState(o); }
    Control& operator=(const Control& o) {
        copyState(o);
        return *this;
    }

    const QString& name() const { return name_; }
    void setName(const QString& n) { name_ = n; }

    // Text of a text box (or the caption of a label, which is its text).
    const QString& text() const { return text_; }
    void setText(const QString& t) { set(text_, t, Prop::Text); }
    const QString& caption() const { return caption_; }
    void setCaption(const QString& c) { set(caption_, c, Prop::Caption); }

    // Checked state (0/1) of a check box, index of an option group, value of
    // a progress bar or scroll bar.
    int value() const { return value_; }
    void setValue(int v) { set(value_, v, Prop::Value); }
    bool checked() const { return value_ == 1; }
    void setChecked(bool c) { setValue(c ? 1 : 0); }

    int min() const { return min_; }
    int max() const { return max_; }
    void setRange(int lo, int hi) {
        if (lo == min_ && hi == max_) return;
        min_ = lo;
        max_ = hi;
        emit(Prop::Range);
    }

    long backColor() const { return back_; }
    void setBackColor(long c) { set(back_, c, Prop::BackColor); }
    long foreColor() const { return fore_; }
    void setForeColor(long c) { set(fore_, c, Prop::ForeColor); }
    bool visible() const { return visible_; }
    void setVisible(bool v) { set(visible_, v, Prop::Visible); }
    bool enabled() const { return enabled_; }
    void setEnabled(bool e) { set(enabled_, e, Prop::Enabled); }
    const QString& toolTip() const { return toolTip_; }
    void setToolTip(const QString& t) { set(toolTip_, t, Prop::ToolTip); }

    // Lines of a list box.
    const QStringList& items() const { return items_; }
    void addItem(const QString& line) {
        items_.append(line);
        emit(Prop::Items);
    }
    void setItem(int i, const QString& line) {
        if (i < 0 || i >= items_.size() || items_[i] == line) return;
        items_[i] = line;
        emit(Prop::Items);
    }
    void clearItems() {
        if (items_.isEmpty()) return;
        items_.clear();
        emit(Prop::Items);
    }

    // Where a box floating over the chart stands and how big it is, in
    // twips of the canvas. The logic sets the place; the view tells the
    // size its widget takes, so a drag can keep the whole box in sight.
    double left() const { return left_; }
    double top() const { return top_; }
    double width() const { return width_; }
    double height() const { return height_; }
    void setPlace(double left, double top) {
        if (left == left_ && top == top_) return;
        left_ = left;
        top_ = top;
        emit(Prop::Place);
    }
    void setSize(double width, double height) {
        if (width == width_ && height == height_) return;
        width_ = width;
        height_ = height;
        emit(Prop::Place);
    }

    // Position in a control array; -1 for a single control.
    int index() const { return index_; }
    void setIndex(int i) { index_ = i; }

    // Every change of any property reaches every listener.
    void listen(Listener l) { listeners_.push_back(std::move(l)); }
    void clearListeners() { listeners_.clear(); }

  private:
    template <class T> void set(T& field, const T& v, Prop p) {
        if (field == v) return;
        field = v;
        emit(p);
    }
    void emit(Prop p) const {
        for (const auto& l : listeners_) l(*this, p);
    }
    void copyState(const Control& o) {
        name_ = o.name_;
        text_ = o.text_;
        caption_ = o.caption_;
        value_ = o.value_;
        min_ = o.min_;
        max_ = o.max_;
        back_ = o.back_;
        fore_ = o.fore_;
        visible_ = o.visible_;
        enabled_ = o.enabled_;
        toolTip_ = o.toolTip_;
        items_ = o.items_;
        index_ = o.index_;
        left_ = o.left_;
        top_ = o.top_;
        width_ = o.width_;
        height_ = o.height_;
    }

    QString name_;
    QString text_;
    QString caption_;
    int value_ = 0;
    int min_ = 0;
    int max_ = 100;
    long back_ = color::Button;
    long fore_ = color::Black;
    bool visible_ = true;
    bool enabled_ = true;
    QString toolTip_;
    QStringList items_;
    int index_ = -1;
    double left_ = 0;
    double top_ = 0;
    double width_ = 0;
    double height_ = 0;
    std::vector<Listener> listeners_;
};

} // namespace forms
