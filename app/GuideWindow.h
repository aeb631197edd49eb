#pragma once

#include <QDialog>
#include <QSize>
#include <QString>

class QTextBrowser;

namespace quarnel {

/// The user guide in a window of its own, at the chapter that is asked for. It stays open beside
/// the work.
class GuideWindow : public QDialog {
    Q_OBJECT
public:
    explicit GuideWindow(QWidget* parent = nullptr);

    /// Opens the guide beside a window that is used meanwhile, or brings up the one that stands
    /// there.
    static void ShowBeside(QWidget& window, const QString& heading);
    /// Shows the chapter with this heading, for example "The readings"; the beginning for "".
    void ShowChapter(const QString& heading);
    QSize sizeHint() const override;

private:
    QTextBrowser* text_ = nullptr;
};

} // namespace quarnel
