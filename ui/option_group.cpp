#include "ui/option_group.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QVBoxLayout>

namespace ui {

OptionGroup::OptionGroup(QWidget* parent)
    : QWidget(parent), group_(new QButtonGroup(this)), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(2);
    connect(group_, &QButtonGroup::idClicked, this, &OptionGroup::chosenByUser);
}

void OptionGroup::setChoices(const QStringList& captions) {
    while (count() > captions.size()) delete group_->button(count() - 1);
    for (int i = 0; i < captions.size(); ++i) {
        QRadioButton* b = button(i);
        if (!b) {
            b = new QRadioButton(this);
            b->setObjectName(objectName() + "_" + QString::number(i));
            group_->addButton(b, i);
            column_->addWidget(b);
        }
        b->setText(captions[i]);
    }
}

void OptionGroup::setChosen(int index) {
    if (QRadioButton* b = button(index)) {
        b->setChecked(true);
        return;
    }
    // Nothing chosen: the group has to let go of its checked button.
    group_->setExclusive(false);
    for (QAbstractButton* b : group_->buttons()) b->setChecked(false);
    group_->setExclusive(true);
}

int OptionGroup::chosen() const {
    return group_->checkedId();
}

QRadioButton* OptionGroup::button(int index) const {
    return qobject_cast<QRadioButton*>(group_->button(index));
}

int OptionGroup::count() const {
    return static_cast<int>(group_->buttons().size());
}

} // namespace ui
