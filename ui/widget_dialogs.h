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

} // namespace ui
