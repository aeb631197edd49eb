#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// How large a text is in the font of the page. A layout is handed one, so that it breaks lines
/// where the painter's font does and yet needs no font of its own to be tested. Lengths in twips
/// (1/1440 inch), font sizes in points.
class TextMeasure {
public:
    TextMeasure() = default;
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;
    virtual ~TextMeasure() = default;

    /// Width of `text` (UTF-8) on one line.
    virtual double Width(std::string_view text, double points, bool bold = false) const = 0;
    /// Height of a line of text: its ascent and descent.
    virtual double Height(double points) const = 0;
};

inline constexpr std::size_t AnyNumberOfLines = static_cast<std::size_t>(-1);

/// `text` (UTF-8) cut between words into lines no wider than `maxWidth`; a word that is wider
/// itself is cut between characters. At least one line, and every line but a single too wide
/// character fits. Looks at each character once and at none behind the last line asked for, so that
/// a text of any length costs no more than its own length; where the text goes on behind that line,
/// the line ends in "...".
std::vector<std::string> WrapText(std::string_view text, double points, double maxWidth,
                                  const TextMeasure& measure,
                                  std::size_t mostLines = AnyNumberOfLines);

/// The number of lines that WrapText makes of `text`, counted no further than `mostLines` + 1.
std::size_t CountLines(std::string_view text, double points, double maxWidth,
                       const TextMeasure& measure, std::size_t mostLines);

} // namespace quarnel
