#include "ui/binder.h"

#include "ui/colors.h"
#include "ui/log.h"
#include "ui/option_group.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QButtonGroup>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTabWidget>

namespace ui {

using forms::Prop;

namespace {

// A handler never takes the event loop down: what escapes it is noted and
// the screen goes on.
template <class F, class... A> void safeCall(const F& f, const QString& where, A... args) {
    if (!f) return;
    try {
        f(args...);
    } catch (const std::exception& e) {
        qCWarning(lcUi) << where << "handler failed:" << e.what();
    } catch (...) {
        qCWarning(lcUi) << where << "handler failed";
    }
}

// Text boxes keep the program's CR LF line ends; the editor wants bare LF.
QString toScreen(const QString& t) {
    QString s = t;
    s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    s.replace('\r', '\n');
    return s;
}
QString fromScreen(const QString& t) {
    QString s = t;
    s.replace('\n', QStringLiteral("\r\n"));
    return s;
}

void setButtonChecked(QAbstractButton* b, bool on) {
    if (b->isChecked() == on) return;
    // An exclusive group refuses to clear its checked member; the model may.
    QButtonGroup* g = b->group();
    const bool groupExclusive = g && g->exclusive() && !on;
    const bool autoExclusive = b->autoExclusive() && !on;
    if (groupExclusive) g->setExclusive(false);
    if (autoExclusive) b->setAutoExclusive(false);
    b->setChecked(on);
    if (autoExclusive) b->setAutoExclusive(true);
    if (groupExclusive) g->setExclusive(true);
}

class Link : public QObject {
  public:
    Link(QWidget* w, forms::Control& c, Events ev) : QObject(w), w_(w), c_(&c), ev_(std::move(ev)) {
        w->setObjectName(objectNameOf(c));
        for (Prop p : {Prop::Caption, Prop::Text, Prop::Range, Prop::Value, Prop::Items,
                       Prop::BackColor, Prop::Enabled, Prop::ToolTip, Prop::Visible})
            apply(p);
        QPointer<Link> self(this);
        c.listen([self](const forms::Control&, Prop p) {
            if (self) self->apply(p);
        });
        connectWidget();
        if (ev_.click || ev_.key || ev_.commit || ev_.leave || ev_.dblClick)
            w->installEventFilter(this);
        // A text box takes its mouse events in the viewport inside it.
        if (ev_.dblClick)
            if (auto* area = qobject_cast<QAbstractScrollArea*>(w)) {
                viewport_ = area->viewport();
                viewport_->installEventFilter(this);
            }
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (watched == viewport_ && viewport_ && e->type() == QEvent::MouseButtonDblClick) {
            if (static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton)
                safeCall(ev_.dblClick, w_->objectName());
            return false;
        }
        if (watched != w_) return false;
        switch (e->type()) {
        case QEvent::MouseButtonDblClick:
            if (ev_.dblClick && static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton)
                safeCall(ev_.dblClick, w_->objectName());
            return false;
        case QEvent::KeyPress: {
            if (!ev_.key) return false;
            const QString typed = static_cast<QKeyEvent*>(e)->text();
            if (typed.isEmpty()) return false;
            for (QChar ch : typed) safeCall(ev_.key, w_->objectName(), ch);
            return true;
        }
        case QEvent::MouseButtonRelease:
            // Buttons report their own clicks; this is for labels and frames.
            if (ev_.click && !qobject_cast<QAbstractButton*>(w_) &&
                static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton &&
                w_->rect().contains(static_cast<QMouseEvent*>(e)->position().toPoint()))
                safeCall(ev_.click, w_->objectName());
            return false;
        case QEvent::FocusOut: {
            // Leaving the field, not the window or into a menu of its own.
            const auto reason = static_cast<QFocusEvent*>(e)->reason();
            if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
                return false;
            safeCall(ev_.leave, w_->objectName());
            safeCall(ev_.commit, w_->objectName());
            return false;
        }
        default:
            return false;
        }
    }

  private:
    void connectWidget();
    void apply(Prop p);
    void applyText();
    void applyCaption();
    // A label's words are its caption; a label the program writes through
    // its text instead shows that.
    QString labelWords() const { return c_->caption().isEmpty() ? c_->text() : c_->caption(); }

    QWidget* w_;
    QWidget* viewport_ = nullptr;
    forms::Control* c_;
    Events ev_;
    bool applying_ = false;
};

void Link::connectWidget() {
    const QString where = w_->objectName();
    if (auto* b = qobject_cast<QAbstractButton*>(w_)) {
        const bool option = qobject_cast<QRadioButton*>(b) != nullptr;
        QObject::connect(b, &QAbstractButton::toggled, this, [this, option, where](bool on) {
            if (applying_) return;
            c_->setValue(on ? 1 : 0);
            // An option's click is its being chosen; leaving it is not one.
            if (option && on) safeCall(ev_.click, where);
        });
        if (!option)
            QObject::connect(b, &QAbstractButton::clicked, this,
                             [this, where] { safeCall(ev_.click, where); });
    } else if (auto* le = qobject_cast<QLineEdit*>(w_)) {
        QObject::connect(le, &QLineEdit::textEdited, this, [this, where](const QString& t) {
            c_->setText(t);
            safeCall(ev_.change, where);
        });
        QObject::connect(le, &QLineEdit::returnPressed, this, [this, where] {
            safeCall(ev_.enter, where);
            safeCall(ev_.commit, where);
        });
    } else if (auto* pe = qobject_cast<QPlainTextEdit*>(w_)) {
        QObject::connect(pe, &QPlainTextEdit::textChanged, this, [this, pe, where] {
            if (applying_ || pe->isReadOnly()) return;
            c_->setText(fromScreen(pe->toPlainText()));
            safeCall(ev_.change, where);
        });
    } else if (auto* cb = qobject_cast<QComboBox*>(w_)) {
        QObject::connect(cb, &QComboBox::currentTextChanged, this, [this](const QString& t) {
            if (!applying_) c_->setText(t);
        });
        QObject::connect(cb, &QComboBox::activated, this,
                         [this, where] { safeCall(ev_.click, where); });
    } else if (auto* lw = qobject_cast<QListWidget*>(w_)) {
        QObject::connect(lw, &QListWidget::itemClicked, this,
                         [this, where] { safeCall(ev_.click, where); });
    } else if (auto* og = qobject_cast<OptionGroup*>(w_)) {
        QObject::connect(og, &OptionGroup::chosenByUser, this, [this, where](int i) {
            c_->setValue(i);
            safeCall(ev_.click, where);
        });
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(w_)) {
        QObject::connect(slider, &QAbstractSlider::valueChanged, this, [this, where](int v) {
            if (applying_) return;
            c_->setValue(v);
            safeCall(ev_.change, where);
        });
    } else if (auto* tabs = qobject_cast<QTabWidget*>(w_)) {
        QObject::connect(tabs, &QTabWidget::currentChanged, this, [this, where](int i) {
            if (applying_) return;
            c_->setValue(i);
            safeCall(ev_.click, where);
        });
    }
}

void Link::apply(Prop p) {
    QScopedValueRollback<bool> guard(applying_, true);
    switch (p) {
    case Prop::Caption:
        applyCaption();
        break;
    case Prop::Text:
        applyText();
        break;
    case Prop::Value:
        if (auto* b = qobject_cast<QAbstractButton*>(w_); b && b->isCheckable())
            setButtonChecked(b, c_->value() == 1);
        else if (auto* bar = qobject_cast<QProgressBar*>(w_))
            bar->setValue(std::clamp(c_->value(), bar->minimum(), bar->maximum()));
        else if (auto* og = qobject_cast<OptionGroup*>(w_))
            og->setChosen(c_->value());
        else if (auto* tabs = qobject_cast<QTabWidget*>(w_))
            tabs->setCurrentIndex(c_->value());
        else if (auto* slider = qobject_cast<QAbstractSlider*>(w_))
            slider->setValue(c_->value());
        break;
    case Prop::Range:
        if (auto* bar = qobject_cast<QProgressBar*>(w_)) {
            bar->setRange(c_->min(), c_->max());
            bar->setValue(std::clamp(c_->value(), c_->min(), c_->max()));
        } else if (auto* slider = qobject_cast<QAbstractSlider*>(w_)) {
            slider->setRange(c_->min(), c_->max());
        }
        break;
    case Prop::Items:
        if (auto* lw = qobject_cast<QListWidget*>(w_)) {
            lw->clear();
            lw->addItems(c_->items());
            lw->scrollToBottom();
        } else if (auto* cb = qobject_cast<QComboBox*>(w_)) {
            cb->clear();
            cb->addItems(c_->items());
            cb->setCurrentText(c_->text());
        } else if (auto* og = qobject_cast<OptionGroup*>(w_)) {
            og->setChoices(c_->items());
            og->setChosen(c_->value());
        } else if (auto* tabs = qobject_cast<QTabWidget*>(w_)) {
            // The pages are the view's; the words on their tabs are the model's.
            for (int i = 0; i < tabs->count() && i < c_->items().size(); ++i)
                tabs->setTabText(i, c_->items()[i]);
        }
        break;
    case Prop::BackColor:
    case Prop::ForeColor:
        applyColors(w_, c_->backColor(), c_->foreColor());
        break;
    case Prop::Visible:
        // A panel's own window follows its form, not a control.
        if (!w_->isWindow()) w_->setVisible(c_->visible());
        break;
    case Prop::Enabled:
        w_->setEnabled(c_->enabled());
        break;
    case Prop::ToolTip:
        w_->setToolTip(c_->toolTip());
        break;
    case Prop::Place:
        // Only the boxes floating over the chart have a place, and their
        // view maps it through the canvas's scale itself.
        break;
    }
}

void Link::applyCaption() {
    const QString& cap = c_->caption();
    if (auto* b = qobject_cast<QAbstractButton*>(w_))
        b->setText(cap);
    else if (auto* g = qobject_cast<QGroupBox*>(w_))
        g->setTitle(cap);
    else if (auto* l = qobject_cast<QLabel*>(w_))
        l->setText(labelWords());
}

void Link::applyText() {
    const QString& t = c_->text();
    if (auto* le = qobject_cast<QLineEdit*>(w_)) {
        if (le->text() != t) le->setText(t);
    } else if (auto* pe = qobject_cast<QPlainTextEdit*>(w_)) {
        const QString now = pe->toPlainText();
        const QString want = toScreen(t);
        if (now == want) return;
        // A growing log only gets its new tail; anything else is redrawn.
        if (!now.isEmpty() && want.startsWith(now)) {
            QTextCursor end(pe->document());
            end.movePosition(QTextCursor::End);
            end.insertText(want.mid(now.size()));
        } else {
            pe->setPlainText(want);
        }
        // The newest line stays in view.
        pe->moveCursor(QTextCursor::End);
        pe->verticalScrollBar()->setValue(pe->verticalScrollBar()->maximum());
    } else if (auto* cb = qobject_cast<QComboBox*>(w_)) {
        if (cb->currentText() != t) cb->setCurrentText(t);
    } else if (auto* l = qobject_cast<QLabel*>(w_)) {
        l->setText(labelWords());
    }
}

} // namespace

QString objectNameOf(const forms::Control& c) {
    return c.index() >= 0 ? c.name() + "_" + QString::number(c.index()) : c.name();
}

void bind(QWidget* w, forms::Control& c, Events events) {
    new Link(w, c, std::move(events));
}

void bindCaption(QLabel* label, forms::Control& c) {
    label->setText(c.caption());
    QPointer<QLabel> l(label);
    c.listen([l](const forms::Control& ctl, Prop p) {
        if (l && p == Prop::Caption) l->setText(ctl.caption());
        if (l && p == Prop::Visible) l->setVisible(ctl.visible());
    });
}

void applyColors(QWidget* w, long back, long fore) {
    // The toolkit's face with the program's default black text stays as the
    // theme draws it; anything the program chose is drawn as chosen.
    // Grey is the classic button face: drawn as the theme's face, so a
    // button at rest looks like every other button.
    const bool ownBack = back != forms::color::Button && back != forms::color::Grey;
    const bool ownFore = fore != forms::color::Button && (ownBack || fore != forms::color::Black);
    QPalette p;
    if (ownBack) {
        const QColor b = toQColor(back);
        for (auto role : {QPalette::Window, QPalette::Button, QPalette::Base}) p.setColor(role, b);
    }
    if (ownFore) {
        QColor f = toQColor(fore);
        // Text in the colour of its own ground is never meant to vanish:
        // it is drawn in the contrasting colour instead.
        if (ownBack && fore == back) f = toQColor(back).lightness() < 128 ? Qt::white : Qt::black;
        // On the theme's own dark ground a dark colour (a blue curve, a black
        // one) keeps its hue but is lifted until it can be read at night.
        const QPalette around = w->parentWidget() ? w->parentWidget()->palette() : QPalette();
        const QColor ground = around.color(QPalette::Window);
        if (!ownBack && ground.lightness() < 100 && f.lightness() < 150)
            f = QColor::fromHsl(f.hslHue(), f.hslSaturation(), 150);
        for (auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
            p.setColor(role, f);
    }
    if (auto* bar = qobject_cast<QProgressBar*>(w)) {
        // A bar's colour is the colour of its filled part.
        QPalette bp;
        if (fore != forms::color::Black) bp.setColor(QPalette::Highlight, toQColor(fore));
        if (ownBack) bp.setColor(QPalette::Base, toQColor(back));
        bar->setPalette(bp);
        return;
    }
    w->setPalette(p);
    w->setAutoFillBackground(ownBack && !qobject_cast<QAbstractButton*>(w));
}

} // namespace ui
