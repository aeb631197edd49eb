#pragma once

#include "loggerfiles/ImportReadings.h"

#include <QString>
#include <memory>
#include <string>
#include <utility>

class QWidget;

namespace quarnel {

/// The title of the import's window, dialogs and questions.
QString ImportTitle();

/// Asks for a logger's file. Returns its full path, "" when the user cancelled.
QString ChooseLoggerFile(QWidget* parent);

/// Where readings come from: a file, or a text that was pasted.
struct LoggerSource {
    // A path is such a source wherever one is asked for.
    LoggerSource(std::string filePath) // NOLINT(google-explicit-constructor)
        : path(std::move(filePath)) {}
    LoggerSource(const QString& name, const QString& pasted);

    bool IsText() const { return text != nullptr; }

    std::string path; ///< of the file, bytes as the system names it; what a text is called
    std::shared_ptr<const std::string> text; ///< null where it is a file
};

/// Reads the logger file or text under the busy pointer; above 20 MB a dialog shows how far it is
/// and lets the user cancel. Nothing when cancelled; what is wrong with it is the fault of its
/// reading.
std::shared_ptr<const LoggerFile> ReadLoggerFileShown(QWidget* parent, const LoggerSource& source,
                                                      const ReadOptions& options = {});

} // namespace quarnel
