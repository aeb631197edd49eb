#pragma once

#include "kcompute/AnalysisRun.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace quarnel {

/// Writes the record of each test that is compared into a folder, replacing what is there. May be
/// asked on several threads at a time.
class CompareRecords {
public:
    /// `files` are the projects to come, from which each has its record's name.
    CompareRecords(std::string folder, const std::vector<std::string>& files);

    /// Writes the record of a project that could be read, once however often it is named. A failure
    /// is told on standard error.
    void Write(const AnalysisRun& run);
    bool HasFailed() const { return hasFailed_; }

private:
    std::string folder_;
    std::mutex taking_;
    std::map<std::string, std::string> namesByFile_; ///< of the records still to write
    std::atomic<bool> hasFailed_ = false;
};

} // namespace quarnel
