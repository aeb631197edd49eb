// What the main window does with files: new, open, import, save, and the copy that outlives a
// crash.

#include "app/BRMainForm.h"

#include "app/ComputePanel.h"
#include "app/GeneralTools.h"
#include "app/MainGlobal.h"
#include "app/RecentProjects.h"
#include "app/RecoveryCopy.h"
#include "app/RecoveryOffer.h"
#include "app/StatusLine.h"
#include "loggerfiles/ImportMessages.h"
#include "loggerfiles/ImportReadingsFrm.h"
#include "loggerfiles/LoggerFileDialogs.h"
#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/ProjectFileDialogs.h"
#include "recovery/RecoveryDataPanel.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QApplication>
#include <QLabel>
#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quarnel {

void BRMainForm::NewProject() {
    if (AskYesNo(this, QStringLiteral("New Project will clear existing data. Make sure you have "
                                      "saved current information to a file before proceeding.\r\n"
                                      " Do you want to proceed with New Project?"))) {
        Replace(
            [this] {
                ResetAnalysis(analysis_);
                return true;
            },
            QString());
    }
}

void BRMainForm::OpenProject() {
    const QString path = ChooseProjectToOpen(this);
    if (!path.isEmpty())
        OpenPath(path);
}

void BRMainForm::OpenPath(const QString& path) {
    OpenNamed(ToUtf8(path));
}

ReadReport BRMainForm::ReadProject(const std::string& path) {
    ReadReport report;
    const bool isOpen = Replace(
        [this, &path, &report] {
            report = OpenProjectFile(path, analysis_);
            return report.format != FileFormat::Unrecognised;
        },
        QStringLiteral("Opened ") + ToQString(path));
    if (!isOpen)
        ShowStatus(QStringLiteral("Not opened: ") + ToQString(path));
    return report;
}

bool BRMainForm::Replace(const std::function<bool()>& read, const QString& said) {
    const BusyPointer busy;
    CommitEdits();
    std::optional<ReplacedWork> former = recoveryCopy_->KeepUnsaved();
    if (!read())
        return false;
    const QString name = former ? ProjectName(former->file.CurrentProjectFile) : QString();
    const bool isKept = former.has_value();
    if (isKept)
        recoveryCopy_->SetAside(*std::move(former));
    ShowState();
    if (isKept)
        status_->SayAndOffer((said.isEmpty() ? QString() : said + QStringLiteral(". ")) +
                                 QStringLiteral("What was not saved is kept, of ") + name,
                             StatusOffer::BringBack);
    else
        ShowStatus(said);
    return true;
}

namespace {

/// What the user has opened; a recovery copy is none of it.
void NoteOpened(const ReadReport& report, const std::string& path) {
    if (report.format == FileFormat::Unrecognised)
        return;
    RememberFolderOf(ToQString(path));
    RecentProjects::Note(ToQString(path));
}

} // namespace

void BRMainForm::OpenNamed(const std::string& path) {
    const ReadReport report = ReadProject(path);
    NoteOpened(report, path);
    for (const std::string& message : report.messages)
        ShowMessage(this, ToQString(message));
    if (report.format == FileFormat::Unrecognised)
        OfferImport(path);
}

void BRMainForm::TakeDropped(const std::string& path) {
    const ReadReport report = ReadProject(path);
    NoteOpened(report, path);
    if (report.format == FileFormat::Unrecognised)
        return Import(path, ReadLoggerFileShown(this, path));
    for (const std::string& message : report.messages)
        ShowMessage(this, ToQString(message));
}

// ---- Import ------------------------------------------------------------------------------------

namespace {

/// Whether there is anything to look at, even where its times fall.
bool HoldsReadings(const LoggerFile& file) {
    return file.reading.record.times.size() >= 2 && !file.reading.record.channels.empty();
}

} // namespace

void BRMainForm::ImportReadings() {
    const QString path = ChooseLoggerFile(this);
    if (!path.isEmpty())
        Import(ToUtf8(path), ReadLoggerFileShown(this, ToUtf8(path)));
}

void BRMainForm::ImportNotPasted() {
    const LoggerSource pasted(QStringLiteral("pasted text"), notPasted_);
    const std::shared_ptr<const LoggerFile> file = ReadLoggerFileShown(this, pasted);
    if (file == nullptr)
        return; // cancelled; the offer stays
    notPasted_.clear();
    ShowStatus(QString());
    // What is no table may have come from one.
    if (HoldsReadings(*file))
        Import(pasted, file);
    else
        ImportReadings();
}

void BRMainForm::OfferImport(const std::string& path) {
    const std::shared_ptr<const LoggerFile> file = ReadLoggerFileShown(this, path);
    if (file == nullptr || !HoldsReadings(*file))
        return;
    const LoggerRecord& record = file->reading.record;
    if (AskYesNo(this,
                 QStringLiteral("%1 holds %2 rows of readings (%3). Import them?")
                     .arg(ToQString(file->name))
                     .arg(record.times.size())
                     .arg(ToQString(record.formatName)),
                 ImportTitle()))
        Import(path, file);
}

void BRMainForm::Import(const LoggerSource& source, std::shared_ptr<const LoggerFile> file) {
    if (file == nullptr)
        return;
    if (!HoldsReadings(*file)) {
        ShowMessage(this, ToQString(file->reading.fault));
        return;
    }
    CommitEdits();
    if (!source.IsText())
        RememberFolderOf(ToQString(source.path));
    ImportReadingsFrm form(source, std::move(file), analysis_.state, this);
    if (form.exec() == QDialog::Accepted)
        CarryOut(*form.Plan());
}

void BRMainForm::CarryOut(const ImportPlan& plan) {
    {
        const BusyPointer busy;
        ProjectState imported;
        ReadingSettings settings = SettingsOf(analysis_.state);
        ExchangeSettings(imported, settings);
        ApplyImport(plan, imported);
        recoveryData_->TakeReadings(std::move(imported.RecDatGrid), SettingsOf(imported));
    }
    SelectTab(RecoveryDataTab);
    // A question over a window that closes right behind it leaves some desktops at a loss.
    TakeKeyboard();
    ShowStatus(ToQString(ImportedText(plan)));
}

// ---- Saving and the end ------------------------------------------------------------------------

void BRMainForm::SaveProject() {
    if (analysis_.file.CurrentProjectFile.empty())
        SaveProjectAs();
    else
        Write(std::string(analysis_.file.CurrentProjectFile));
}

namespace {

/// A name without the ending is what the user typed; only the list of Open is another one then.
QString NoteOfEnding(const QString& path) {
    return path.endsWith(QStringLiteral(".qn2"), Qt::CaseInsensitive)
               ? QString()
               : QStringLiteral(". Open lists it under \"All Files\", not under \"Quarnel 2\": "
                                "its name does not end in .qn2");
}

} // namespace

void BRMainForm::SaveProjectAs() {
    CommitEdits();
    const QString path = ChooseNameToSave(this);
    if (path.isEmpty())
        return;
    RememberFolderOf(path);
    Write(ToUtf8(path), NoteOfEnding(path));
}

namespace {

/// What became of the file that stood there before.
QString KeptText(const SaveReport& report) {
    if (report.keptAs.empty())
        return QString();
    const QString name = ToQString(report.keptAs);
    return report.changedOnDisk
               ? QStringLiteral(". The file had been changed by somebody else meanwhile; that "
                                "version is kept as ") +
                     name
               : QStringLiteral(". The file that was there is kept as ") + name;
}

/// What the status bar says after a save.
QString SavedText(const QString& path, const SaveReport& report,
                  const std::vector<std::string>& lost) {
    QString text = QStringLiteral("Saved ") + path + KeptText(report);
    if (lost.empty())
        return text;
    constexpr std::size_t Named = 20;
    QStringList names;
    for (std::size_t i = 0; i < std::min(lost.size(), Named); ++i)
        names.append(ToQString(lost[i]));
    if (lost.size() > Named)
        names.append(QStringLiteral("and %1 more").arg(lost.size() - Named));
    return QStringLiteral("Not read back intact, because of a double quote or a line break: ") +
           names.join(QStringLiteral(", ")) + QStringLiteral(". ") + text;
}

} // namespace

void BRMainForm::Write(const std::string& path, const QString& note) {
    CommitEdits();
    SaveReport report;
    {
        const BusyPointer busy;
        report = WriteProjectFile(path, analysis_.state, analysis_.file);
    }
    ShowTitle();
    if (report.isSaved) {
        // What could not be written whole is not saved yet.
        if (report.messages.empty())
            recoveryCopy_->NoteSaved();
        RecentProjects::Note(ToQString(path));
    }
    const QString name = ToQString(path);
    ShowStatus(report.messages.empty()
                   ? SavedText(name, report, FieldsNotReadBackIntact(analysis_.state)) + note
                   : QStringLiteral("Not saved whole: ") + name + KeptText(report));
    for (const std::string& message : report.messages)
        ShowMessage(this, ToQString(message));
}

void BRMainForm::BuildRecoveryCopy() {
    recoveryCopy_ = new RecoveryCopy(analysis_, this);
    connect(recoveryData_, &RecoveryDataPanel::ReadingsEdited, recoveryCopy_,
            &RecoveryCopy::NoteEdit);
    connect(compute_, &Panel::Edited, recoveryCopy_, &RecoveryCopy::NoteEdit);
    connect(recoveryCopy_, &RecoveryCopy::WritingFailed, this, [this](const QString& reason) {
        ShowStatus(QStringLiteral("No recovery copy could be written: ") + reason);
    });
    connect(recoveryCopy_, &RecoveryCopy::ReplacedChanged, this, &BRMainForm::ListReplaced);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &BRMainForm::KeepRecoveryCopy);
}

void BRMainForm::KeepRecoveryCopy() {
    CommitEdits();
    recoveryCopy_->WriteNow();
}

bool BRMainForm::OfferLeftCopies() {
    for (const LeftCopy& left : recoveryCopy_->TakeLeftCopies()) {
        const RecoveryAnswer answer = AskForLeftCopy(this, left);
        if (answer == RecoveryAnswer::Restore)
            Restore(left);
        if (answer != RecoveryAnswer::Discard)
            return true;
        RemoveCopy(left.copy.path);
    }
    return false;
}

void BRMainForm::Restore(const LeftCopy& left) {
    const ReadReport report = ReadProject(ToUtf8(left.copy.path));
    // A copy that is no project any more stays where it is, for a closer look.
    if (report.format != FileFormat::Unrecognised) {
        // Its own file is the one it was a copy of; a save looks first at what stands there now.
        analysis_.file = FileOnDisk();
        analysis_.file.CurrentProjectFile = left.projectFile;
        ShowTitle();
        ShowStatus(QStringLiteral("Restored what was typed before the program ended. It is not "
                                  "saved yet."));
        recoveryCopy_->NoteRestored(left.copy);
    }
    for (const std::string& message : report.messages)
        ShowMessage(this, ToQString(message));
}

void BRMainForm::BringBack(int number) {
    const std::vector<ReplacedWork>& all = recoveryCopy_->Replaced();
    const auto found = std::find_if(
        all.begin(), all.end(), [number](const ReplacedWork& one) { return one.number == number; });
    if (found == all.end())
        return;
    const ReplacedWork work = *found;
    ReadReport report;
    const auto read = [this, &work, &report] {
        if (work.isWhole) {
            ResetAnalysis(analysis_);
            analysis_.state = work.state;
            return true;
        }
        report = OpenProjectFile(ToUtf8(work.copy->path), analysis_);
        if (report.format == FileFormat::Unrecognised)
            return false;
        TakeTexts(work.state, analysis_.state);
        return true;
    };
    if (Replace(read, QStringLiteral("Brought back ") + ProjectName(work.file.CurrentProjectFile) +
                          QStringLiteral(". It is not saved yet"))) {
        analysis_.file = work.file;
        ShowTitle();
        recoveryCopy_->NoteBroughtBack(number);
    }
    for (const std::string& message : report.messages)
        ShowMessage(this, ToQString(message));
}

void BRMainForm::ListReplaced() {
    std::vector<RecentProjects::ReplacedEntry> entries;
    for (const ReplacedWork& work : recoveryCopy_->Replaced())
        entries.push_back({work.number, ProjectName(work.file.CurrentProjectFile), work.replaced});
    recent_->ListReplaced(std::move(entries));
}

} // namespace quarnel
