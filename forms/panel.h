#pragma once
// A panel model: the panel's own state (title, shown or hidden) and the list
// of its controls by name, which the views bind to and tests look up.

#include "forms/control.h"

#include <array>
#include <vector>

namespace forms {

class Panel {
  public:
    Panel(const QString& name, const QString& title) : form(name, title) {}
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;
    virtual ~Panel() = default;

    // The panel itself: caption is its title, visible whether it is shown.
    Control form;

    const QString& name() const { return form.name(); }
    const std::vector<Control*>& controls() const { return controls_; }
    // A control by name (and index for arrays); nullptr when there is none.
    Control* find(const QString& name, int index = -1) const;

  protected:
    Control& add(Control& c, const QString& name, const QString& caption = {},
                 const QString& toolTip = {});
    template <std::size_t N> void addArray(std::array<Control, N>& arr, const QString& name) {
        for (std::size_t i = 0; i < N; ++i) {
            add(arr[i], name);
            arr[i].setIndex(static_cast<int>(i));
        }
    }

  private:
    std::vector<Control*> controls_;
};

} // namespace forms
