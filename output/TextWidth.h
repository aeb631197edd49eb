#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

// A page is laid out before any font is at hand, so the layout knows the widths of Arial itself
// (and so of Liberation Sans, which was drawn to the same widths). A text measured a little short
// here is still held in its place by its label's maxWidth. Lengths in twips (1/1440 inch).

/// Width of `text` (UTF-8) in upright Arial of `points` points, without kerning.
double ArialWidth(std::string_view text, double points);

/// Height of a line of Arial: its ascent and descent.
double ArialHeight(double points);

/// `text` cut between words into lines no wider than `maxWidth`; a word that is wider itself is cut
/// between characters. At least one line, and every line but a single too wide character fits.
std::vector<std::string> WrapArial(std::string_view text, double points, double maxWidth);

} // namespace quarnel
