#pragma once
// The look of every screen: one font, and a dark face that a mud logger can
// read through a night shift without being dazzled.

namespace ui {

// Sets the style, palette and font of the running application.
void applyLook();

} // namespace ui
