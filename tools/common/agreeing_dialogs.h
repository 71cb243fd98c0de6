#pragma once
// The operator of a headless run who says yes to every question: a tool or a
// benchmark that runs a command the user already chose, confirmation and
// all, with no screen to ask on.

#include "platform/dialogs.h"

namespace tools {

class AgreeingDialogs : public platform::QuietDialogs {
  public:
    platform::Answer MsgBox(const QString& text, platform::Buttons buttons, const QString& title,
                            platform::Icon icon) override {
        QuietDialogs::MsgBox(text, buttons, title, icon);
        return buttons == platform::Buttons::YesNo ? platform::Answer::Yes : platform::Answer::Ok;
    }
};

} // namespace tools
