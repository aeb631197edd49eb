#pragma once

#include <string>
#include <string_view>

namespace quarnel {

/// A UTF-8 text with its Latin, Greek and Cyrillic capitals turned into small letters, to tell
/// labels apart by more than their case; every other character stays.
std::string FoldedCase(std::string_view text);

/// Whether a name stands before another for a person: digits count as the number they make
/// ("test 2" before "test 10"), case only where nothing else differs.
bool NaturallyBefore(std::string_view a, std::string_view b);

} // namespace quarnel
