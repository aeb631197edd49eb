#pragma once

#include "compare/TestRecord.h"
#include "kcompute/Analysis.h"
#include "kcompute/ComputeK.h"

#include <string>
#include <utility>
#include <vector>

namespace quarnel::test {

/// A project prepared and computed as the programs do it, and what was said on the way.
struct AnalysedProject {
    Analysis analysis;
    std::vector<std::string> messages;
};

inline void Analyse(AnalysedProject& project) {
    const auto add = [&project](const std::string& message) {
        if (!message.empty())
            project.messages.push_back(message);
    };
    const Preparation preparation = PrepareComputation(project.analysis);
    add(preparation.coefficientWarning);
    add(preparation.yWarning);
    if (preparation.result.IsError())
        return add(preparation.result.message);
    if (const Result result = Compute(project.analysis); result.IsError())
        add(result.message);
    else if (!project.analysis.computation->line.Falls())
        add(std::string(RisingSlopeMessage));
}

inline AnalysedProject AnalysedFile(const std::string& path) {
    AnalysedProject project;
    project.messages = OpenProjectFile(path, project.analysis).messages;
    Analyse(project);
    return project;
}

inline AnalysedProject AnalysedState(ProjectState state) {
    AnalysedProject project;
    project.analysis.state = std::move(state);
    Analyse(project);
    return project;
}

inline std::string RecordOf(const AnalysedProject& project) {
    return TestRecordText(project.analysis, project.messages);
}

} // namespace quarnel::test
