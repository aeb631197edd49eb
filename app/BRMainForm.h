#pragma once

#include "kcompute/Analysis.h"
#include "project/Files.h"
#include "project/Result.h"

#include <QMainWindow>
#include <QTabBar>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QDialog;
class QTimer;
class QVBoxLayout;

namespace quarnel {

struct LeftCopy;

class CompareProjectsFrm;
class ComputePanel;
class ComputedYFrm;
class DiagnosticsFrm;
class Panel;
class PrtPlotFrm;
class PrtResults;
class RecentProjects;
class RecoveryCopy;
class RecoveryDataPanel;
class StatusLine;
enum class StatusOffer;
class WellGeometryPanel;
struct ImportPlan;
struct LoggerFile;
struct LoggerSource;

/// The main window: tab strip, six panels, menus. It holds the one analysis of the program.
class BRMainForm : public QMainWindow {
    Q_OBJECT
public:
    explicit BRMainForm(QWidget* parent = nullptr);

    /// Shows the window.
    void StartUp();
    /// Offers the copies that windows which are gone left behind. Whether that settles what the
    /// window shows: one was restored, or the program was ended meanwhile.
    bool OfferLeftCopies();
    /// Writes the copy of the project that a later start offers: the program is being ended.
    void KeepRecoveryCopy();
    /// Makes panel `panel` (1 to 6) visible and hides all others.
    void DisplaySelectedPanel(int panel);
    /// Selects tab `tab` (1 to 5) as a click on it does.
    void SelectTab(int tab);
    /// Shows the whole analysis again, in every panel and window, after New or Open.
    void ShowState();
    /// Opens the project at `path` as the Open command does once a file is chosen.
    void OpenPath(const QString& path);
    /// The same for a name of any bytes, which need not be a text.
    void OpenNamed(const std::string& path);

    Analysis& Current() { return analysis_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    /// A project dropped on the window, whichever control it falls on, opens; the window cannot be
    /// closed while "Confirm Exit" stands.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void BuildRecoveryCopy();
    void Restore(const LeftCopy& copy);
    /// Puts what `read` reads in the place of the project, of which what was not saved is kept and
    /// offered in the status bar with `said`. `read` says whether it has replaced the project.
    bool Replace(const std::function<bool()>& read, const QString& said);
    /// Goes on with the replaced work of this number.
    void BringBack(int number);
    void ListReplaced();
    void TakeOffer(StatusOffer offer);
    void BuildTabStrip(QVBoxLayout* rows);
    void BuildPanels(QVBoxLayout* rows);
    /// Puts `content` under the title of panel `panel`.
    QWidget* MakePanel(int panel, Panel* content);
    void BuildDialogs();
    /// Shows a dialog, centred until the user has moved it.
    void Open(QDialog* dialog);
    void BuildMenus();

    void HidePanels();
    /// Gives the keyboard to the page that is shown.
    void FocusPage();
    /// Gets the keyboard for the page that is shown, whatever window had it.
    void TakeKeyboard();
    /// Leads to the text that a message names.
    void GoTo(const FaultPlace& place);
    void ClickTab();
    /// Lets every window that shows the computation show it again.
    void ShowComputation();
    /// Finds out, once the events at hand are done, whether the computation is current.
    void ScheduleCurrencyCheck();
    void ShowWhetherCurrent();
    /// Prepares the computation and shows what it left; the tab at fault is selected after an
    /// error.
    Preparation PrepareAndShow();
    void ShowTitle();
    void ShowStatus(const QString& text);
    /// Says what a check of the well, and of these readings, has read.
    void ShowChecked(const RecoveryPointList& points);
    /// Says what became of a paste, and offers the import where some of it was passed over.
    void ShowPasted(const QString& text, std::size_t rows);

    void NewProject();
    void OpenProject();
    void SaveProject();
    void SaveProjectAs();
    /// `note` is said besides what the save says.
    void Write(const std::string& path, const QString& note = {});
    /// Opens the project at `path` and says in the status bar whether it is one; nothing of the
    /// analysis changes where it is none.
    ReadReport ReadProject(const std::string& path);
    void TakeDropped(const std::string& path);
    void ImportReadings();
    /// Takes the offer that came with a paste.
    void ImportNotPasted();
    /// Offers the import of a file that is no project but holds readings.
    void OfferImport(const std::string& path);
    /// Shows "Import Readings" for a file, and carries out what an OK there says.
    void Import(const LoggerSource& source, std::shared_ptr<const LoggerFile> file);
    void CarryOut(const ImportPlan& plan);
    void Exit();
    void ShowGuide();
    void About();
    /// Opens the window "Diagnostics", which is made when it is first asked for.
    void ShowDiagnostics();
    /// Opens the window "Compare Projects", which is made when it is first asked for.
    void CompareProjects();
    /// Opens a project of that window, as the Open command does.
    void OpenCompared(const std::string& path);
    /// Marks these points of the computation (counted from 0) Use and all others Ignore.
    void UseOnly(const std::vector<std::size_t>& points);
    /// Whether the user confirms the end of the program.
    bool ConfirmExit();

    Analysis analysis_;
    RecoveryCopy* recoveryCopy_ = nullptr;
    RecentProjects* recent_ = nullptr;
    bool exitConfirmed_ = false;
    bool exitAsked_ = false; ///< "Confirm Exit" stands
    QTimer* currencyCheck_ = nullptr;

    QTabBar* TabStrip2 = nullptr;
    /// By panel number; 0 is empty and never shown.
    std::array<QWidget*, 7> SSPanel1{};
    /// The contents of the panels in the order they show the state.
    std::array<Panel*, 5> contents_{};
    RecoveryDataPanel* recoveryData_ = nullptr;
    ComputePanel* compute_ = nullptr;
    WellGeometryPanel* wellGeometry_ = nullptr;
    StatusLine* status_ = nullptr;
    QString notPasted_; ///< what the status line offers to import

    PrtResults* prtResults_ = nullptr;
    PrtPlotFrm* prtPlotFrm_ = nullptr;
    ComputedYFrm* computedYFrm_ = nullptr;
    DiagnosticsFrm* diagnostics_ = nullptr;         ///< null until it is first asked for
    CompareProjectsFrm* compareProjects_ = nullptr; ///< the same
};

} // namespace quarnel
