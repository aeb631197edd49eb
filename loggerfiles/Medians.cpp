#include "loggerfiles/Medians.h"

#include <algorithm>

namespace quarnel {

double MedianOf(std::vector<double>& values) {
    if (values.empty())
        return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*std::max_element(values.begin(), middle) + *middle) / 2;
}

} // namespace quarnel
