#include "app/GuideWindow.h"

#include "app/GeneralTools.h"
#include "widgets/ScreenFit.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

// The guide lies in a static library, where a linker drops its registration unless it is asked for.
static void RegisterGuide() {
    Q_INIT_RESOURCE(guide);
}

namespace quarnel {

namespace {

/// A line of the guide reads well at about so many characters.
constexpr int LineCharacters = 110;
constexpr int Lines = 36;

/// A heading of the guide without its number.
QString WithoutNumber(const QString& heading) {
    const qsizetype point = heading.indexOf(QStringLiteral(". "));
    return point < 0 ? heading : heading.mid(point + 2);
}

/// Where the heading stands; the beginning where there is none.
int PositionOf(const QTextDocument& document, const QString& heading) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() > 0 && WithoutNumber(block.text()) == heading)
            return block.position();
    return 0;
}

} // namespace

GuideWindow::GuideWindow(QWidget* parent)
    : QDialog(parent) {
    RegisterGuide();
    setObjectName(QStringLiteral("GuideWindow"));
    setWindowTitle(QStringLiteral("User Guide"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    text_ = new QTextBrowser;
    text_->setObjectName(QStringLiteral("GuideText"));
    text_->setAccessibleName(QStringLiteral("User guide"));
    text_->setSearchPaths({QStringLiteral(":/guide")});
    text_->setOpenExternalLinks(false);
    text_->setSource(QUrl(QStringLiteral("qrc:/guide/user-guide.html")));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("CmdClose"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(text_, 1);
    rows->addWidget(buttons);
}

void GuideWindow::ShowBeside(QWidget& window, const QString& heading) {
    auto* guide = window.findChild<GuideWindow*>(QString(), Qt::FindDirectChildrenOnly);
    if (guide == nullptr)
        guide = new GuideWindow(&window);
    ShowDialog(guide);
    guide->ShowChapter(heading);
}

QSize GuideWindow::sizeHint() const {
    const QFontMetrics metrics(text_->font());
    return QSize(metrics.averageCharWidth() * LineCharacters, metrics.lineSpacing() * Lines)
        .boundedTo(ScreenRoom(*this).size());
}

void GuideWindow::ShowChapter(const QString& heading) {
    QTextCursor cursor(text_->document());
    cursor.movePosition(QTextCursor::End);
    text_->setTextCursor(cursor);
    cursor.setPosition(heading.isEmpty() ? 0 : PositionOf(*text_->document(), heading));
    // From below, so that the chapter's heading comes to stand at the top.
    text_->setTextCursor(cursor);
    text_->ensureCursorVisible();
}

} // namespace quarnel
