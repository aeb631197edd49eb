#include "app/BRMainForm.h"

#include "app/ComputePanel.h"
#include "app/DroppedProject.h"
#include "app/GeneralTools.h"
#include "app/GuideWindow.h"
#include "app/HelpKey.h"
#include "app/MainGlobal.h"
#include "app/RecentProjects.h"
#include "app/RecoveryCopy.h"
#include "app/RecoveryOffer.h"
#include "app/SiteIdentificationPanel.h"
#include "app/StatusLine.h"
#include "app/WellTestIdentificationPanel.h"
#include "compare/CompareProjectsFrm.h"
#include "diagnostics/DiagnosticsFrm.h"
#include "kcompute/ComputedYFrm.h"
#include "kcompute/Plausibility.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "loggerfiles/ImportMessages.h"
#include "loggerfiles/ImportReadingsFrm.h"
#include "loggerfiles/LoggerFileDialogs.h"
#include "output/PrtPlotFrm.h"
#include "output/PrtResults.h"
#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/ProjectFileDialogs.h"
#include "project/Result.h"
#include "recovery/PasteText.h"
#include "recovery/RecoveryDataPanel.h"
#include "wellgeometry/WellGeometryPanel.h"
#include "widgets/MessageBoxes.h"
#include "widgets/PageScroll.h"
#include "widgets/Panel.h"
#include "widgets/QtTexts.h"
#include "widgets/TabKeys.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QInputMethod>
#include <QLabel>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

BRMainForm::BRMainForm(QWidget* parent)
    : QMainWindow(parent) {
    setObjectName(QStringLiteral("BRMainForm"));
    auto* centre = new QWidget;
    auto* rows = new QVBoxLayout(centre);
    // The status bar is margin enough.
    QMargins margins = rows->contentsMargins();
    margins.setBottom(0);
    rows->setContentsMargins(margins);
    BuildTabStrip(rows);
    BuildPanels(rows);
    setCentralWidget(centre);
    currencyCheck_ = new QTimer(this);
    currencyCheck_->setSingleShot(true);
    connect(currencyCheck_, &QTimer::timeout, this, &BRMainForm::ShowWhetherCurrent);
    BuildDialogs();
    BuildMenus();
    BuildRecoveryCopy();
    status_ = new StatusLine;
    connect(status_, &StatusLine::OfferTaken, this, &BRMainForm::TakeOffer);
    statusBar()->addWidget(status_, 1);
    setAcceptDrops(true);
    qApp->installEventFilter(this);
    qApp->installEventFilter(new HelpKey(this));
}

void BRMainForm::BuildTabStrip(QVBoxLayout* rows) {
    TabStrip2 = new QTabBar;
    TabStrip2->setObjectName(QStringLiteral("TabStrip2"));
    TabStrip2->setAccessibleName(QStringLiteral("Pages"));
    TabStrip2->setExpanding(false);
    for (const std::string_view caption : TabCaptions)
        TabStrip2->addTab(ToQString(caption));
    connect(TabStrip2, &QTabBar::currentChanged, this, &BRMainForm::ClickTab);
    TurnByPageKeys(*TabStrip2, *this);
    for (int tab = 1; tab <= TabStrip2->count(); ++tab) {
        const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + tab));
        TabStrip2->setTabToolTip(tab - 1, keys.toString(QKeySequence::NativeText));
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, tab] { TabStrip2->setCurrentIndex(tab - 1); });
    }
    rows->addWidget(TabStrip2);
}

void BRMainForm::BuildPanels(QVBoxLayout* rows) {
    wellGeometry_ = new WellGeometryPanel(analysis_.state);
    recoveryData_ = new RecoveryDataPanel(analysis_.state, analysis_.working.recovery);
    compute_ = new ComputePanel(analysis_);
    contents_ = {new SiteIdentificationPanel(analysis_.state),
                 new WellTestIdentificationPanel(analysis_.state), wellGeometry_, recoveryData_,
                 compute_};
    for (int panel = 0; panel <= PanelCount; ++panel) {
        const auto* tab = std::find(TabPanels.begin(), TabPanels.end(), panel);
        Panel* content = tab == TabPanels.end() ? nullptr : contents_[tab - TabPanels.begin()];
        rows->addWidget(SSPanel1[static_cast<std::size_t>(panel)] = MakePanel(panel, content), 1);
    }
    connect(recoveryData_, &RecoveryDataPanel::HeadingsChanged, compute_,
            &ComputePanel::ShowHeadings);
    connect(recoveryData_, &RecoveryDataPanel::Checked, this, [this] {
        WorkingValues& working = analysis_.working;
        working.marks =
            RestoredMarks(analysis_.state.IgnoreKeyList, *working.recovery.RecoveryPoints);
        compute_->ShowPreparedData();
        if (!working.recovery.RecoveryPoints->empty()) // a check that failed has read nothing
            ShowChecked(*working.recovery.RecoveryPoints);
    });
    connect(recoveryData_, &RecoveryDataPanel::Pasted, this, &BRMainForm::ShowPasted);
    connect(recoveryData_, &RecoveryDataPanel::TookBack, this, [this](bool undone) {
        ShowStatus(undone ? QStringLiteral("Took back the last change of the readings")
                          : QStringLiteral("Made the last change of the readings again"));
    });
    connect(wellGeometry_, &WellGeometryPanel::Accepted, this,
            [this] { ShowChecked(ReadingsAsTyped(analysis_.state)); });
    for (const Panel* content : contents_)
        if (content != compute_)
            connect(content, &Panel::Edited, this, &BRMainForm::ScheduleCurrencyCheck);
    connect(compute_, &Panel::Edited, this, &BRMainForm::ShowWhetherCurrent);
}

QWidget* BRMainForm::MakePanel(int panel, Panel* content) {
    auto* frame = new QWidget;
    frame->setObjectName(QStringLiteral("SSPanel1_") + QString::number(panel));
    frame->hide();
    auto* rows = new QVBoxLayout(frame);
    rows->setContentsMargins(0, 0, 0, 0);
    auto* title = new QLabel(ToQString(PanelTitles[static_cast<std::size_t>(panel)]));
    title->setObjectName(QStringLiteral("PanelTitle_") + QString::number(panel));
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    title->setFont(font);
    rows->addWidget(title);
    if (content == nullptr)
        return frame;
    rows->addWidget(new PageScroll(content), 1);
    return frame;
}

void BRMainForm::BuildDialogs() {
    prtResults_ = new PrtResults(analysis_, this);
    prtPlotFrm_ = new PrtPlotFrm(analysis_, this);
    computedYFrm_ = new ComputedYFrm(analysis_.state, analysis_.computation, this);
    connect(compute_, &ComputePanel::DetailsRequested, this, [this] { Open(computedYFrm_); });
    connect(compute_, &ComputePanel::PrintPlotRequested, this, [this] {
        const BusyPointer busy;
        Open(prtPlotFrm_);
    });
    connect(compute_, &ComputePanel::SummaryRequested, this, [this] { Open(prtResults_); });
    connect(prtResults_, &PrtResults::Told, this, &BRMainForm::ShowStatus);
    connect(prtPlotFrm_, &PrtPlotFrm::Told, this, &BRMainForm::ShowStatus);
    connect(compute_, &ComputePanel::Told, this, &BRMainForm::ShowStatus);
    connect(compute_, &ComputePanel::ComputationChanged, this, &BRMainForm::ShowComputation);
}

void BRMainForm::Open(QDialog* dialog) {
    ShowDialog(dialog);
    ShowWhetherCurrent();
}

void BRMainForm::BuildMenus() {
    QMenu* mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    const auto add = [this](QWidget* menu, const QString& name, const QString& caption,
                            const QKeySequence& keys, void (BRMainForm::*command)()) {
        auto* action = new QAction(caption, this);
        action->setObjectName(name);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, command);
        menu->addAction(action);
        return action;
    };
    add(mnuFile, QStringLiteral("mnuNew"), QStringLiteral("&New"), Qt::CTRL | Qt::Key_N,
        &BRMainForm::NewProject);
    add(mnuFile, QStringLiteral("mnuOpenFile"), QStringLiteral("&Open..."), Qt::CTRL | Qt::Key_O,
        &BRMainForm::OpenProject);
    add(mnuFile, QStringLiteral("mnuFileSave"), QStringLiteral("&Save"), Qt::CTRL | Qt::Key_S,
        &BRMainForm::SaveProject);
    add(mnuFile, QStringLiteral("mnuSaveAs"), QStringLiteral("Save &As..."),
        Qt::CTRL | Qt::SHIFT | Qt::Key_S, &BRMainForm::SaveProjectAs);
    mnuFile->addSeparator();
    recent_ = new RecentProjects(mnuFile);
    mnuFile->addMenu(recent_);
    connect(recent_, &RecentProjects::Chosen, this, &BRMainForm::OpenPath);
    connect(recent_, &RecentProjects::BringBackChosen, this, &BRMainForm::BringBack);
    add(mnuFile, QStringLiteral("mnuImportReadings"), QStringLiteral("&Import Readings..."),
        QKeySequence(), &BRMainForm::ImportReadings);
    mnuFile->addSeparator();
    add(mnuFile, QStringLiteral("mnuExit"), QStringLiteral("E&xit"), Qt::CTRL | Qt::Key_Q,
        &BRMainForm::Exit);
    QMenu* mnuTools = menuBar()->addMenu(QStringLiteral("&Tools"));
    mnuTools->setObjectName(QStringLiteral("mnuTools"));
    compute_->AddToPlotMenu(add(mnuTools, QStringLiteral("mnuDiagnostics"),
                                QStringLiteral("&Diagnostics"), Qt::CTRL | Qt::Key_D,
                                &BRMainForm::ShowDiagnostics));
    add(mnuTools, QStringLiteral("mnuCompareProjects"), QStringLiteral("&Compare Projects..."),
        QKeySequence(), &BRMainForm::CompareProjects);
    add(mnuTools, QStringLiteral("mnuUserGuide"), QStringLiteral("User &Guide"), Qt::Key_F1,
        &BRMainForm::ShowGuide);
    add(menuBar(), QStringLiteral("mnuAbout"), QStringLiteral("A&bout"), QKeySequence(),
        &BRMainForm::About);
}

void BRMainForm::StartUp() {
    show();
}

// ---- Panels ------------------------------------------------------------------------------------

void BRMainForm::DisplaySelectedPanel(int panel) {
    for (int i = 0; i <= PanelCount; ++i)
        SSPanel1[static_cast<std::size_t>(i)]->setVisible(i == panel);
}

void BRMainForm::HidePanels() {
    // What is hidden must not go on taking keys; the page that is shown gets them.
    QWidget* focus = focusWidget();
    for (QWidget* panel : SSPanel1) {
        if (focus != nullptr && panel->isAncestorOf(focus))
            focus->clearFocus();
        panel->hide();
    }
}

void BRMainForm::FocusPage() {
    contents_[static_cast<std::size_t>(TabStrip2->currentIndex())]->FocusFirstControl();
}

void BRMainForm::GoTo(const FaultPlace& place) {
    wellGeometry_->GoTo(place);
    recoveryData_->GoTo(place);
    if (QWidget* control = focusWidget())
        PageScroll::BringIntoView(*control);
}

void BRMainForm::SelectTab(int tab) {
    if (TabStrip2->currentIndex() == tab - 1)
        ClickTab();
    else
        TabStrip2->setCurrentIndex(tab - 1);
}

void BRMainForm::ClickTab() {
    CommitEdits();
    const bool onStrip = TabStrip2->hasFocus();
    const int panel = TabPanels[static_cast<std::size_t>(TabStrip2->currentIndex())];
    Preparation preparation;
    {
        const BusyPointer busy;
        HidePanels();
        if (panel == ComputePanelNumber)
            preparation = PrepareAndShow();
        else
            DisplaySelectedPanel(panel);
    }
    if (preparation.result.IsError())
        ShowMessage(this, ToQString(preparation.result.message));
    else if (!preparation.yWarning.empty())
        ShowMessage(this, ToQString(preparation.yWarning));
    if (panel == ComputePanelNumber && !preparation.result.IsError())
        DisplaySelectedPanel(panel);
    if (preparation.result.IsError())
        GoTo(preparation.result.place);
    else if (!onStrip)
        FocusPage();
    status_->Withdraw(StatusOffer::ImportReadings);
    notPasted_.clear();
    ShowWhetherCurrent();
}

Preparation BRMainForm::PrepareAndShow() {
    Preparation preparation = PrepareComputation(analysis_);
    wellGeometry_->ShowCheckedData();
    recoveryData_->ShowPreparedData();
    compute_->ShowPreparedData();
    if (preparation.result.IsError())
        SelectTab(preparation.faultyTab == FaultyTab::RecoveryData ? RecoveryDataTab
                                                                   : WellGeometryTab);
    else
        ShowChecked(*analysis_.working.recovery.RecoveryPoints);
    return preparation;
}

void BRMainForm::ShowState() {
    ShowTitle();
    ShowStatus(QString());
    SelectTab(1);
    for (Panel* content : contents_)
        content->ShowState();
    prtResults_->ShowState();
    prtPlotFrm_->ShowState();
    ShowComputation();
    FocusPage();
    recoveryCopy_->NoteReplaced();
}

void BRMainForm::ShowComputation() {
    computedYFrm_->ShowState();
    if (diagnostics_ != nullptr)
        diagnostics_->ShowState();
    ShowWhetherCurrent();
}

void BRMainForm::ScheduleCurrencyCheck() {
    // A paste of a million cells tells of its changes many times; one look afterwards will do.
    currencyCheck_->start();
}

void BRMainForm::ShowWhetherCurrent() {
    // Comparing a million readings with those of the computation takes a while: only for someone
    // who sees the answer.
    const bool seen = compute_->isVisible() || prtResults_->isVisible() ||
                      prtPlotFrm_->isVisible() || computedYFrm_->isVisible() ||
                      (diagnostics_ != nullptr && diagnostics_->isVisible());
    if (!seen)
        return;
    const bool stale = analysis_.computation != nullptr && !HasCurrentComputation(analysis_);
    compute_->ShowStale(stale);
    prtResults_->ShowStale(stale);
    prtPlotFrm_->ShowStale(stale);
    computedYFrm_->ShowStale(stale);
    if (diagnostics_ != nullptr)
        diagnostics_->ShowStale(stale);
}

void BRMainForm::TakeKeyboard() {
    activateWindow();
    FocusPage();
}

void BRMainForm::ShowTitle() {
    // Qt takes "[*]" in a title for the mark of a changed document; doubled, it stands for itself.
    QString title = ToQString(MainWindowTitle(analysis_.file.CurrentProjectFile));
    setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void BRMainForm::ShowStatus(const QString& text) {
    status_->Say(text);
}

void BRMainForm::ShowChecked(const RecoveryPointList& points) {
    const std::string text = CheckedText(WellAsTyped(analysis_.state), points);
    if (!text.empty())
        ShowStatus(ToQString(text));
}

void BRMainForm::ShowPasted(const QString& text, std::size_t rows) {
    const PasteText told = TextOfPaste(ToUtf8(text), rows, analysis_.state.DecimalSeparator);
    notPasted_ = told.offersImport ? text : QString();
    if (told.offersImport)
        status_->SayAndOffer(ToQString(told.said), StatusOffer::ImportReadings);
    else
        status_->Say(ToQString(told.said));
}

void BRMainForm::TakeOffer(StatusOffer offer) {
    if (offer == StatusOffer::ImportReadings)
        ImportNotPasted();
    else if (!recoveryCopy_->Replaced().empty())
        BringBack(recoveryCopy_->Replaced().back().number);
}

// ---- Commands
// ------------------------------------------------------------------------------------

void BRMainForm::Exit() {
    if (exitAsked_ || !ConfirmExit())
        return;
    exitConfirmed_ = true;
    close();
}

void BRMainForm::ShowGuide() {
    constexpr std::array<const char*, 5> Chapters = {"Who and where", "Who and where", "The well",
                                                     "The readings", "K"};
    GuideWindow::ShowBeside(
        *this, QString::fromUtf8(Chapters[static_cast<std::size_t>(TabStrip2->currentIndex())]));
}

void BRMainForm::About() {
    ShowMessage(this, QStringLiteral("\r\nBouwer-Rice Slug Test Analysis\r\nVersion 3.0\r\n"),
                QStringLiteral("About"));
}

void BRMainForm::ShowDiagnostics() {
    CommitEdits();
    if (diagnostics_ == nullptr) {
        diagnostics_ = new DiagnosticsFrm(analysis_, this);
        MoveToCentre(diagnostics_);
        connect(diagnostics_, &DiagnosticsFrm::UseOnlyRequested, this, &BRMainForm::UseOnly);
        connect(diagnostics_, &DiagnosticsFrm::Told, this, &BRMainForm::ShowStatus);
    }
    Open(diagnostics_);
}

void BRMainForm::CompareProjects() {
    if (compareProjects_ == nullptr) {
        compareProjects_ = new CompareProjectsFrm(
            analysis_, [this] { return recoveryCopy_->HasUnsavedChanges(); }, this);
        MoveToCentre(compareProjects_);
        connect(compareProjects_, &CompareProjectsFrm::OpenRequested, this,
                &BRMainForm::OpenCompared);
        connect(compareProjects_, &CompareProjectsFrm::Told, this, &BRMainForm::ShowStatus);
    }
    Open(compareProjects_);
}

void BRMainForm::OpenCompared(const std::string& path) {
    raise();
    activateWindow();
    OpenNamed(path);
}

void BRMainForm::UseOnly(const std::vector<std::size_t>& points) {
    // A look at another tab that found a fault there has left no points to mark.
    const RecoveryPointList& computed = *analysis_.computation->recovery.RecoveryPoints;
    if (analysis_.working.marks.size() != computed.size()) {
        const Result result = CheckDataShowYs(analysis_);
        recoveryData_->ShowPreparedData();
        compute_->ShowPreparedData();
        if (result.IsError()) {
            ShowMessage(diagnostics_, ToQString(result.message));
            return;
        }
    }
    compute_->UseOnly(points);
}

bool BRMainForm::ConfirmExit() {
    const QScopedValueRollback<bool> asking(exitAsked_, true);
    return AskOkCancel(this, QStringLiteral("Exit QUARNEL? (Unsaved data will be lost.)"),
                       QStringLiteral("Confirm Exit"));
}

void BRMainForm::closeEvent(QCloseEvent* event) {
    if (!exitConfirmed_ && !ConfirmExit()) {
        event->ignore();
        return;
    }
    // A later showing of the window, and its closing, asks again.
    exitConfirmed_ = false;
    recoveryCopy_->Remove();
    for (QDialog* dialog : findChildren<QDialog*>(Qt::FindDirectChildrenOnly))
        dialog->close();
    event->accept();
}

bool BRMainForm::eventFilter(QObject* receiver, QEvent* event) {
    // The toolkit takes a second request to close for granted while the first is being answered.
    if (exitAsked_ && event->type() == QEvent::Close && receiver == windowHandle()) {
        event->ignore();
        return true;
    }
    const auto* widget = qobject_cast<QWidget*>(receiver);
    if (widget != nullptr && widget->window() == this) {
        const QString path = DroppedProject(event);
        if (!path.isEmpty() && event->type() == QEvent::Drop)
            // The dragging program waits for the drop to end; the reading and its boxes come after.
            QMetaObject::invokeMethod(
                this, [this, path] { TakeDropped(ToUtf8(path)); }, Qt::QueuedConnection);
        if (!path.isEmpty())
            return true;
    }
    return QMainWindow::eventFilter(receiver, event);
}

} // namespace quarnel
