#pragma once

#include <QWidget>

namespace quarnel {

/// Sizes a window to the screen's usable area less the margins, centred across it, at `top`.
/// Margins and `top` in twips (1/1440 inch).
void SizeWindowToScreen(QWidget* window, int widthMargin, int heightMargin, int top);

/// Centres a window on its screen.
void CentreWindow(QWidget* window);

} // namespace quarnel
