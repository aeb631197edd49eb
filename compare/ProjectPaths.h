#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// Whether `a` stands before `b` where numbers in names count as numbers: "test 2" before "test
/// 10". Case is ignored where it is the only difference but one.
bool IsNaturallyLess(std::string_view a, std::string_view b);

/// Sorts paths (the names' own bytes) by their file names in natural order.
void SortNaturally(std::vector<std::string>& paths);

/// The projects of a folder, not of those in it: its files that end in .qn2 or .in, in natural
/// order. None of a folder that cannot be read.
std::vector<std::string> ProjectsIn(const std::string& folder);

/// The name of each project's record in a folder: "NAME-record.txt", NAME the project's file name
/// without its ending; of several with one name "NAME-record-2.txt" and so on, so that none takes
/// the place of another.
std::vector<std::string> RecordNames(const std::vector<std::string>& projects,
                                     std::string_view ending = ".txt");

} // namespace quarnel
