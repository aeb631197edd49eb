#include "loggerfiles/LoggerFileDialogs.h"

#include "loggerfiles/XleReader.h"
#include "project/ProjectFileDialogs.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QProgressDialog>
#include <filesystem>

namespace quarnel {

namespace {

std::shared_ptr<const LoggerFile> Read(const std::string& path, const ReadOptions& options) {
    auto file = std::make_shared<LoggerFile>();
    file->name = FileNameOf(path);
    file->reading = ReadLoggerFile(path, options);
    return file->reading.isCancelled ? nullptr : file;
}

bool IsLarge(const std::string& path) {
    constexpr std::uintmax_t LargestWithoutProgress = 20'000'000;
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(path, unknown);
    return !unknown && size > LargestWithoutProgress;
}

} // namespace

QString ImportTitle() {
    return QStringLiteral("Import Readings");
}

QString ChooseLoggerFile(QWidget* parent) {
    return ChooseFileToOpen(
        parent, ImportTitle(),
        {QStringLiteral("Logger files (*.xle *.csv *.lev *.mon *.htm *.html *.txt *.dat)"
                        "(*.xle *.csv *.lev *.mon *.htm *.html *.txt *.dat)"),
         QStringLiteral("All Files (*.*)(*)")});
}

std::shared_ptr<const LoggerFile> ReadLoggerFileShown(QWidget* parent, const std::string& path,
                                                      const ReadOptions& options) {
    ReadOptions own = options;
    own.xleReader = ReadXle;
    if (!IsLarge(path)) {
        const BusyPointer busy;
        return Read(path, own);
    }
    constexpr int Steps = 1000;
    QProgressDialog dialog(QStringLiteral("Reading ") + ToQString(FileNameOf(path)),
                           QStringLiteral("Cancel"), 0, Steps, parent);
    dialog.setObjectName(QStringLiteral("ImportProgress"));
    dialog.setWindowTitle(ImportTitle());
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(0);
    dialog.setValue(0);
    own.progress = [&dialog](std::size_t done, std::size_t all) {
        dialog.setValue(static_cast<int>(done * (Steps - 1) / std::max<std::size_t>(all, 1)));
        return !dialog.wasCanceled();
    };
    return Read(path, own);
}

} // namespace quarnel
