#pragma once

#include <string>

namespace quarnel {

/// The decimal separator of the user's locale (UTF-8), which typed numbers may use beside ".".
std::string SystemDecimalSeparator();

} // namespace quarnel
