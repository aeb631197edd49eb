#include "compare/ProjectPaths.h"

#include "compare/CompareRow.h"
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

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The digits at the beginning of `text` without leading zeros; they are taken off the text.
std::string_view TakeNumber(std::string_view& text) {
    std::size_t end = 0;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    std::string_view number = text.substr(0, end);
    text.remove_prefix(end);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

/// Below 0, 0 or above 0, numbers by their value.
int CompareNaturally(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (IsDigit(a.front()) && IsDigit(b.front())) {
            const std::string_view first = TakeNumber(a);
            const std::string_view second = TakeNumber(b);
            if (first.size() != second.size())
                return first.size() < second.size() ? -1 : 1;
            if (const int order = first.compare(second); order != 0)
                return order;
        } else {
            const auto first = static_cast<unsigned char>(a.front());
            const auto second = static_cast<unsigned char>(b.front());
            if (first != second)
                return first < second ? -1 : 1;
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.empty() ? (b.empty() ? 0 : -1) : 1;
}

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

bool IsNaturallyLess(std::string_view a, std::string_view b) {
    if (const int order = CompareNaturally(UpperCaseAscii(a), UpperCaseAscii(b)); order != 0)
        return order < 0;
    return a < b;
}

void SortNaturally(std::vector<std::string>& paths) {
    std::stable_sort(paths.begin(), paths.end(), [](const std::string& a, const std::string& b) {
        return IsNaturallyLess(FileNameOf(a), FileNameOf(b));
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
