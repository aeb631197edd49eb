#include "compare/ProjectPaths.h"

#include "compare/CompareRow.h"
#include "compare/Labels.h"
#include "project/Texts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <set>
#include <system_error>

namespace quarnel {

namespace {

constexpr std::array<std::string_view, 2> ProjectEndings = {".QN2", ".IN"};

bool IsProjectName(std::string_view name) {
    const std::string upper = UpperCaseAscii(name);
    return std::any_of(ProjectEndings.begin(), ProjectEndings.end(), [&](std::string_view ending) {
        return upper.size() > ending.size() && upper.ends_with(ending);
    });
}

/// A file name without its ending; one that begins with its only dot stays whole.
std::string_view WithoutEnding(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

} // namespace

void SortNaturally(std::vector<std::string>& paths) {
    std::stable_sort(paths.begin(), paths.end(), [](const std::string& a, const std::string& b) {
        return NaturallyBefore(FileNameOf(a), FileNameOf(b));
    });
}

std::vector<std::string> ProjectsIn(const std::string& folder) {
    namespace fs = std::filesystem;
    std::vector<std::string> projects;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code unknown;
        if (IsProjectName(entry->path().filename().native()) && entry->is_regular_file(unknown))
            projects.push_back(entry->path().native());
    }
    SortNaturally(projects);
    return projects;
}

std::vector<std::string> RecordNames(const std::vector<std::string>& projects,
                                     std::string_view ending) {
    std::vector<std::string> names;
    std::set<std::string> taken;
    for (const std::string& project : projects) {
        const std::string start = std::string(WithoutEnding(FileNameOf(project))) + "-record";
        std::string name = start + std::string(ending);
        for (int number = 2; !taken.insert(name).second; ++number)
            name = start + "-" + std::to_string(number) + std::string(ending);
        names.push_back(std::move(name));
    }
    return names;
}

} // namespace quarnel
