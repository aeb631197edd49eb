#include "widgets/TabKeys.h"

#include <QShortcut>
#include <QTabBar>
#include <utility>

namespace quarnel {

void TurnByPageKeys(QTabBar& tabs, QWidget& window) {
    for (const auto& [key, by] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)})
        QObject::connect(new QShortcut(Qt::CTRL | key, &window), &QShortcut::activated, &tabs,
                         [&tabs, step = by] {
                             const int count = tabs.count();
                             tabs.setCurrentIndex((tabs.currentIndex() + step + count) % count);
                         });
}

} // namespace quarnel
