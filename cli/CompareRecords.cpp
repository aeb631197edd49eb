#include "cli/CompareRecords.h"

#include "cli/Output.h"
#include "compare/ProjectPaths.h"
#include "compare/TestRecord.h"
#include "system/ReplaceFile.h"

#include <set>
#include <utility>

namespace quarnel {

CompareRecords::CompareRecords(std::string folder, const std::vector<std::string>& files)
    : folder_(std::move(folder)) {
    std::vector<std::string> different;
    std::set<std::string> seen;
    for (const std::string& file : files)
        if (seen.insert(file).second)
            different.push_back(file);
    std::vector<std::string> names = RecordNames(different);
    for (std::size_t i = 0; i < names.size(); ++i)
        namesByFile_.emplace(std::move(different[i]), std::move(names[i]));
}

void CompareRecords::Write(const AnalysisRun& run) {
    if (!run.isRead)
        return;
    std::string name;
    {
        const std::lock_guard lock(taking_);
        const auto found = namesByFile_.find(run.file);
        if (found == namesByFile_.end())
            return;
        name = std::move(found->second);
        namesByFile_.erase(found);
    }
    const std::string path = folder_ + "/" + name;
    const FileFailure failure = SaveFileBytes(path, TestRecordText(run.analysis, run.messages));
    if (failure == FileFailure::None)
        return;
    PrintMessage(path, FileErrorMessage(failure));
    hasFailed_ = true;
}

} // namespace quarnel
