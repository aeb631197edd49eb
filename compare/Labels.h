#pragma once

#include <string>
#include <string_view>

namespace quarnel {

/// A UTF-8 text with its Latin, Greek and Cyrillic capitals turned into small letters, to tell
/// labels apart by more than their case; every other character stays.
std::string FoldedCase(std::string_view text);

} // namespace quarnel
