#include "compare/ProjectList.h"

#include "compare/ProjectPaths.h"
#include "system/Wildcards.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarnel {

namespace {

namespace fs = std::filesystem;

bool IsFolder(const std::string& path) {
    std::error_code failure;
    return fs::is_directory(path, failure);
}

bool Exists(const std::string& path) {
    std::error_code failure;
    return fs::exists(path, failure);
}

std::vector<std::string> WithoutFolder(const std::string& path) {
    if (!IsFolder(path))
        return {path};
    std::vector<std::string> projects = ProjectsIn(path);
    return projects.empty() ? std::vector<std::string>{path} : projects;
}

/// A path itself, or what its wildcards match.
std::vector<std::string> Matches(const std::string& path) {
    if (Exists(path) || !HasWildcards(path))
        return {path};
    std::vector<std::string> matches = PathsMatching(path);
    std::sort(matches.begin(), matches.end()); // files of one name in several folders
    SortNaturally(matches);
    return matches.empty() ? std::vector<std::string>{path} : matches;
}

} // namespace

std::vector<std::string> FilesNamed(const std::vector<std::string>& paths) {
    std::vector<std::string> files;
    for (const std::string& path : paths)
        for (std::string& match : Matches(path))
            files.push_back(std::move(match));
    return files;
}

std::vector<std::string> ProjectsNamed(const std::vector<std::string>& paths) {
    std::vector<std::string> projects;
    for (const std::string& match : FilesNamed(paths))
        for (std::string& project : WithoutFolder(match))
            projects.push_back(std::move(project));
    return projects;
}

} // namespace quarnel
