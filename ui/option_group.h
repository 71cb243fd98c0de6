#pragma once
// An option group: one control whose value is the chosen element and whose
// items are the captions of the elements, drawn as a column of option
// buttons.

#include <QWidget>

class QButtonGroup;
class QRadioButton;
class QVBoxLayout;

namespace ui {

class OptionGroup : public QWidget {
    Q_OBJECT
  public:
    explicit OptionGroup(QWidget* parent = nullptr);
    void setChoices(const QStringList& captions);
    // -1 or an index past the end chooses nothing.
    void setChosen(int index);
    int chosen() const;
    QRadioButton* button(int index) const;
    int count() const;

  Q_SIGNALS:
    // The operator chose an element.
    void chosenByUser(int index);

  private:
    QButtonGroup* group_;
    QVBoxLayout* column_;
};

} // namespace ui
