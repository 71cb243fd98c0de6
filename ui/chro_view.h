#pragma once
// The chromatograph panel fm_chro: the picture pb_chro of the run at left,
// the peak buttons, the split sliders and the other buttons at right. The
// picture only shows the image the draw painted; the pointer over it goes to
// the panel's handlers in twips.

#include "ui/panel_window.h"

class Workstation;

namespace ui {

class ChroView : public PanelWindow {
  public:
    ChroView(Workstation& ws, QWidget* owner);
};

} // namespace ui
