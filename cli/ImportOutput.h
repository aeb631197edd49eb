#pragma once

#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "loggerfiles/ImportPlan.h"

#include <string>

namespace quarnel {

/// One import as it is told: the files by the names that the user gave them.
struct ImportRun {
    std::string file;
    std::string barometer; ///< "" without one
    std::string out;
    std::shared_ptr<const ImportPlan> plan;
};

/// The channels of a file for a person to read.
void WriteChannelTable(const std::string& path, const LoggerReading& reading, Output& output);

/// The same as an object with every key of WriteImportJson; what only an import gives is null.
void WriteChannelJson(const std::string& path, const LoggerReading& reading, JsonWriter& json);

/// What an import took for a person to read, the state line last.
void WriteImportTable(const ImportRun& run, Output& output);

/// All of an import as an object; what is absent is null.
void WriteImportJson(const ImportRun& run, JsonWriter& json);

} // namespace quarnel
