#pragma once

class QTabBar;
class QWidget;

namespace quarnel {

/// Ctrl+Page Down and Ctrl+Page Up turn the pages of `tabs` from anywhere in `window`, past the
/// last one to the first.
void TurnByPageKeys(QTabBar& tabs, QWidget& window);

} // namespace quarnel
