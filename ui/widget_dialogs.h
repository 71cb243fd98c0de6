#pragma once
// Message boxes and common dialogs on screen.

#include "platform/dialogs.h"

namespace ui {

class WidgetDialogs : public platform::Dialogs {
  public:
    platform::Answer MsgBox(const QString& text, platform::Buttons buttons, const QString& title,
                            platform::Icon icon) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& startDir) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& startDir) override;
    std::optional<long> PickColor(const QString& title, long initial) override;
};

// The program's filter form, "Data Base File (*.DB) | *.db;*.DB | All Files
// (*.*) | *.*", as the file dialog's list: "Data Base File (*.db *.DB)",
// "All Files (*.*)".
QStringList dialogFilters(const QString& filter);
// A folder or file name as the program writes it (its separators may be
// either kind) in this system's form.
QString dialogPath(const QString& path);

} // namespace ui
