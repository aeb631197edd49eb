#pragma once

#include "output/TextMeasure.h"

namespace quarnel {

/// The widths of upright Arial (and so of Liberation Sans) without kerning, for layouts that are
/// tested where no font is. It counts what it is asked, so that a test can tell how often a text
/// was looked at.
class ArialMeasure : public TextMeasure {
public:
    double Width(std::string_view text, double points, bool bold = false) const override;
    double Height(double points) const override;

    std::size_t MeasuredCharacters() const { return measured_; }

private:
    mutable std::size_t measured_ = 0;
};

} // namespace quarnel
