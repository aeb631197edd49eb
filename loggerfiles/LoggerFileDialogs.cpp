#include "loggerfiles/LoggerFileDialogs.h"

#include "loggerfiles/XleReader.h"
#include "project/ProjectFileDialogs.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QProgressDialog>
#include <filesystem>

namespace quarnel {

namespace {

std::shared_ptr<const LoggerFile> Read(const LoggerSource& source, const ReadOptions& options) {
    auto file = std::make_shared<LoggerFile>();
    file->name = FileNameOf(source.path);
    file->reading = source.IsText() ? ReadLoggerBytes(*source.text, file->name, options)
                                    : ReadLoggerFile(source.path, options);
    return file->reading.isCancelled ? nullptr : file;
}

bool IsLarge(const LoggerSource& source) {
    constexpr std::uintmax_t LargestWithoutProgress = 20'000'000;
    if (source.IsText())
        return source.text->size() > LargestWithoutProgress;
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(source.path, unknown);
    return !unknown && size > LargestWithoutProgress;
}

} // namespace

LoggerSource::LoggerSource(const QString& name, const QString& pasted)
    : path(ToUtf8(name))
    , text(std::make_shared<const std::string>(ToUtf8(pasted))) {}

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

std::shared_ptr<const LoggerFile> ReadLoggerFileShown(QWidget* parent, const LoggerSource& source,
                                                      const ReadOptions& options) {
    ReadOptions own = options;
    own.xleReader = ReadXle;
    if (!IsLarge(source)) {
        const BusyPointer busy;
        return Read(source, own);
    }
    constexpr int Steps = 1000;
    QProgressDialog dialog(QStringLiteral("Reading ") + ToQString(FileNameOf(source.path)),
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
    return Read(source, own);
}

} // namespace quarnel
