#pragma once

#include "loggerfiles/ImportReadings.h"

#include <QString>
#include <memory>
#include <string>

class QWidget;

namespace quarnel {

/// The title of the import's window, dialogs and questions.
QString ImportTitle();

/// Asks for a logger's file. Returns its full path, "" when the user cancelled.
QString ChooseLoggerFile(QWidget* parent);

/// Reads the logger file at `path` (bytes as the system names it) under the busy pointer; above
/// 20 MB a dialog shows how far it is and lets the user cancel. Nothing when cancelled; what is
/// wrong with a file is the fault of its reading.
std::shared_ptr<const LoggerFile> ReadLoggerFileShown(QWidget* parent, const std::string& path,
                                                      const ReadOptions& options = {});

} // namespace quarnel
