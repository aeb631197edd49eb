#pragma once

#include <QWidget>

class QDialog;

namespace quarnel {

/// Sizes a window to the screen's usable area less the margins, centred across it, at `top`.
/// Margins and `top` in twips (1/1440 inch).
void SizeWindowToScreen(QWidget* window, int widthMargin, int heightMargin, int top);

/// Makes a window as large as its contents ask for and centres it on its screen.
void CentreWindow(QWidget* window);
/// Centres a window on its screen in the size it has, as far as the screen has room for that.
void MoveToCentre(QWidget* window);

/// Shows a dialog above the other windows and gives it the keyboard; it is centred until the user
/// has moved it.
void ShowDialog(QDialog* dialog);

/// Puts what the user is typing in a grid's cell into the grid, as leaving the cell does.
void CommitEdits();

} // namespace quarnel
