#pragma once

#include <string>
#include <vector>

namespace quarnel {

/// What `paths` stand for, in their order: a folder for its projects, wildcards for what they
/// match, anything else for itself. What stands for no file at all stays as it is written, so that
/// nothing goes unnoticed.
std::vector<std::string> ProjectsNamed(const std::vector<std::string>& paths);

/// The same for files that are no projects: wildcards alone are taken.
std::vector<std::string> FilesNamed(const std::vector<std::string>& paths);

} // namespace quarnel
