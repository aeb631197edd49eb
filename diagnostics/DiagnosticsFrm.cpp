#include "diagnostics/DiagnosticsFrm.h"

#include "diagnostics/ChecksPageWidget.h"
#include "diagnostics/DiagnosticsSheet.h"
#include "diagnostics/HeadWindowsPageWidget.h"
#include "diagnostics/ResidualsPageWidget.h"
#include "diagnostics/SensitivityPageWidget.h"
#include "diagnostics/StatisticsPageWidget.h"
#include "output/PrintDocument.h"
#include "widgets/CommandButton.h"
#include "widgets/MessageBoxes.h"
#include "widgets/PageScroll.h"
#include "widgets/QtTexts.h"
#include "widgets/TabKeys.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

namespace quarnel {

namespace {

const QString Title = QStringLiteral("Diagnostics");
constexpr QSize FirstSize(760, 560);
/// What the first size holds at least where the font is large.
constexpr int FirstCharacters = 84;
constexpr int FirstLines = 26;

DocumentNames SheetNames() {
    return {Title, QStringLiteral("diagnostics sheet"), QStringLiteral("-diagnostics.pdf")};
}

/// The pages of the sheet, which are complete before the first is painted.
PagesFor SheetPages(Diagnostics& diagnostics, const ProjectState& state, double percent) {
    return [&diagnostics, &state, percent](const Paper& paper) {
        const auto measure = PageMeasure();
        const auto sheet =
            std::make_shared<DiagnosticsSheet>(diagnostics, state, percent, paper, *measure);
        return Pages{sheet->Count(),
                     [measure, sheet](std::size_t page) { return sheet->Page(page); }};
    };
}

} // namespace

DiagnosticsFrm::DiagnosticsFrm(const Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("DiagnosticsFrm"));
    setWindowTitle(Title);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildHead());
    layout->addWidget(BuildTabs(), 1);
    layout->addLayout(BuildButtons());
    const QSize forFont(fontMetrics().averageCharWidth() * FirstCharacters,
                        fontMetrics().lineSpacing() * FirstLines);
    resize(FirstSize.expandedTo(forFont));
    Release();
}

DiagnosticsFrm::~DiagnosticsFrm() = default;

QWidget* DiagnosticsFrm::BuildHead() {
    auto* head = new QWidget;
    auto* rows = new QVBoxLayout(head);
    rows->setContentsMargins(0, 0, 0, 0);
    sentence_ = MakeSentence(QStringLiteral("DiagnosticsSentence"));
    QFont bold = sentence_->font();
    bold.setBold(true);
    sentence_->setFont(bold);
    stateLine_ = MakeSentence(QStringLiteral("DiagnosticsState"));
    sentenceArea_ = new PageScroll(sentence_);
    sentenceArea_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rows->addWidget(sentenceArea_);
    rows->addWidget(stateLine_);
    return head;
}

QTabWidget* DiagnosticsFrm::BuildTabs() {
    windows_ = new HeadWindowsPageWidget;
    sensitivity_ = new SensitivityPageWidget;
    residuals_ = new ResidualsPageWidget(analysis_.file);
    connect(residuals_, &ResidualsPageWidget::Told, this, &DiagnosticsFrm::Told);
    pages_ = {new StatisticsPageWidget, windows_, new ChecksPageWidget, sensitivity_, residuals_};
    tabs_ = new QTabWidget;
    tabs_->setObjectName(QStringLiteral("DiagnosticsTabs"));
    tabs_->setAccessibleName(QStringLiteral("Pages of the diagnostics"));
    for (std::size_t i = 0; i < PageCount; ++i)
        tabs_->addTab(pages_[i], ToQString(DiagnosticsPageTitles[i]));
    connect(tabs_, &QTabWidget::currentChanged, this, &DiagnosticsFrm::ShowCurrentPage);
    TurnByPageKeys(*tabs_->tabBar(), *this);
    connect(windows_, &HeadWindowsPageWidget::MarkHeadRange, this, &DiagnosticsFrm::MarkHeadRange);
    connect(windows_, &HeadWindowsPageWidget::MarkFirstSegment, this,
            &DiagnosticsFrm::MarkFirstSegment);
    connect(windows_, &HeadWindowsPageWidget::MarkSecondSegment, this,
            &DiagnosticsFrm::MarkSecondSegment);
    connect(sensitivity_, &SensitivityPageWidget::PercentChanged, this,
            &DiagnosticsFrm::ShowOtherPercent);
    return tabs_;
}

QLayout* DiagnosticsFrm::BuildButtons() {
    auto* row = new QHBoxLayout;
    outputButtons_ = {
        AddCommandButton(row, this, QStringLiteral("DiagnosticsCopy"), QStringLiteral("&Copy"),
                         QStringLiteral("Copy this page as text, as spreadsheets take it"),
                         &DiagnosticsFrm::Copy),
        AddCommandButton(row, this, QStringLiteral("DiagnosticsPrint"), QStringLiteral("&Print..."),
                         QStringLiteral("Print all pages as one sheet"), &DiagnosticsFrm::Print),
        AddCommandButton(row, this, QStringLiteral("DiagnosticsSavePdf"),
                         QStringLiteral("Save as P&DF..."),
                         QStringLiteral("Save all pages as one sheet in a PDF file"),
                         &DiagnosticsFrm::SaveAsPdf)};
    row->addStretch(1);
    close_ = AddCommandButton(row, this, QStringLiteral("DiagnosticsClose"),
                              QStringLiteral("C&lose"), QString(), &QDialog::reject);
    return row;
}

// ---- What is shown -----------------------------------------------------------------------------

DiagnosticsLines DiagnosticsFrm::Lines() const {
    return {*computation_, analysis_.state};
}

double DiagnosticsFrm::Percent() const {
    return sensitivity_->Percent();
}

void DiagnosticsFrm::ShowState() {
    if (!isVisible())
        return;
    const BusyPointer busy;
    Renew();
    isShown_.fill(false);
    ShowHead();
    ShowCurrentPage();
}

void DiagnosticsFrm::Renew() {
    const std::string& volumeText = analysis_.state.VolumeOfSlugText;
    if (computation_ == analysis_.computation && slugVolumeText_ == volumeText)
        return;
    Release();
    slugVolumeText_ = volumeText;
    if (!analysis_.computation)
        return;
    computation_ = analysis_.computation;
    diagnostics_ = std::make_unique<Diagnostics>(computation_, analysis_.state);
}

void DiagnosticsFrm::Release() {
    for (DiagnosticsPageWidget* page : pages_)
        page->ShowNothing();
    residuals_->Release();
    isShown_.fill(false);
    diagnostics_.reset();
    computation_.reset();
}

void DiagnosticsFrm::ShowHead() {
    const bool hasOne = diagnostics_ != nullptr;
    ShowSentence(sentence_, hasOne ? Lines().Summary(diagnostics_->Statistics(),
                                                     diagnostics_->SensitivityTo(Percent()))
                                   : std::string());
    sentenceArea_->setVisible(hasOne);
    FitSentence();
    tabs_->setEnabled(hasOne);
    for (QPushButton* button : outputButtons_)
        button->setEnabled(hasOne);
    ShowStateLine();
}

/// In a small window with a large font the sentence scrolls and leaves room to the pages.
void DiagnosticsFrm::FitSentence() {
    const int width = contentsRect().width() - layout()->contentsMargins().left() -
                      layout()->contentsMargins().right();
    const int most = std::max(height() / 4, 2 * QFontMetrics(sentence_->font()).lineSpacing());
    sentenceArea_->setFixedHeight(std::clamp(sentence_->heightForWidth(width), 0, most));
}

void DiagnosticsFrm::ShowStateLine() {
    const bool isStale = diagnostics_ != nullptr && isStale_;
    ShowSentence(stateLine_, !diagnostics_ ? std::string(NoComputationText)
                             : isStale     ? std::string(NotCurrentMessage)
                                           : Lines().StateLine());
    QFont font = this->font();
    font.setBold(isStale);
    stateLine_->setFont(font);
    // Greyed as text that does not hold now, yet readable and to be copied.
    sentence_->setForegroundRole(isStale ? QPalette::PlaceholderText : QPalette::WindowText);
    windows_->AllowMarks(diagnostics_ != nullptr &&
                         (!isStale || AreSameReadings(*computation_, analysis_.state)));
}

void DiagnosticsFrm::ShowCurrentPage() {
    const auto current = static_cast<std::size_t>(tabs_->currentIndex());
    if (!diagnostics_ || isShown_[current])
        return;
    const BusyPointer busy;
    pages_[current]->ShowPage(*diagnostics_, Lines(), Percent());
    isShown_[current] = true;
}

void DiagnosticsFrm::ShowOtherPercent() {
    isShown_[static_cast<std::size_t>(DiagnosticsPage::Sensitivity)] = false;
    if (diagnostics_)
        ShowHead();
    ShowCurrentPage();
}

void DiagnosticsFrm::ShowStale(bool stale) {
    isStale_ = stale;
    if (!isVisible())
        return;
    if (slugVolumeText_ != analysis_.state.VolumeOfSlugText)
        ShowState();
    else
        ShowStateLine();
}

void DiagnosticsFrm::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    FitSentence();
}

void DiagnosticsFrm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    ShowState();
    // As to one who comes by keys: the frame around the tab shows where they go.
    setAttribute(Qt::WA_KeyboardFocusChange);
    (tabs_->isEnabled() ? static_cast<QWidget*>(tabs_) : close_)->setFocus(Qt::ShortcutFocusReason);
}

void DiagnosticsFrm::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    Release();
}

// ---- Commands ----------------------------------------------------------------------------------

void DiagnosticsFrm::MarkHeadRange() {
    const std::vector<std::size_t> points = diagnostics_->HeadRangePoints();
    if (points.size() < FewestPointsToMark)
        ShowMessage(this, ToQString(TooFewToMarkText(points.size())), Title);
    else
        Q_EMIT UseOnlyRequested(points);
}

void DiagnosticsFrm::MarkFirstSegment() {
    Q_EMIT UseOnlyRequested(diagnostics_->FirstSegmentPoints());
}

void DiagnosticsFrm::MarkSecondSegment() {
    Q_EMIT UseOnlyRequested(diagnostics_->SecondSegmentPoints());
}

void DiagnosticsFrm::Copy() {
    const BusyPointer busy;
    const auto page = static_cast<DiagnosticsPage>(tabs_->currentIndex());
    QGuiApplication::clipboard()->setText(
        ToQString(TabText(TextsOfPage(page, *diagnostics_, Lines(), Percent()))));
}

OutputOwner DiagnosticsFrm::Owner() {
    return {this, analysis_.file, [this](const QString& said) { Q_EMIT Told(said); }};
}

void DiagnosticsFrm::Print() {
    PrintDocument(Owner(), SheetNames(), SheetPages(*diagnostics_, analysis_.state, Percent()));
}

void DiagnosticsFrm::SaveAsPdf() {
    SaveDocumentAsPdf(Owner(), SheetNames(), SheetPages(*diagnostics_, analysis_.state, Percent()));
}

} // namespace quarnel
