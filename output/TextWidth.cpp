#include "output/TextWidth.h"

#include "output/Drawing.h"

#include <algorithm>
#include <array>

namespace quarnel {

namespace {

/// Arial's ascent (0.905) and descent (0.212), in ems.
constexpr double LineHeightEms = 1.117;

/// Widths of the characters from blank to tilde, in thousandths of an em.
constexpr std::array<int, 95> AsciiWidths = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};
/// Letters with accents and of the scripts near to Latin, at their widest usual width.
constexpr int NearLatinWidth = 722;
/// Ideographs and symbols fill the em.
constexpr int FullWidth = 1000;

/// Bytes of the UTF-8 character that begins with `lead`; a stray byte counts as one character.
std::size_t CharacterSize(unsigned char lead) {
    if (lead >= 0xF0)
        return 4;
    if (lead >= 0xE0)
        return 3;
    return lead >= 0xC0 ? 2 : 1;
}

int CharacterWidth(unsigned char lead) {
    if (lead >= 0x20 && lead < 0x7F)
        return AsciiWidths[lead - 0x20U];
    return lead >= 0xE0 ? FullWidth : NearLatinWidth;
}

/// How many bytes of `text`, whole characters and at least one, fit into `maxWidth`.
std::size_t FittingBytes(std::string_view text, double points, double maxWidth) {
    std::size_t end = std::min(text.size(), CharacterSize(static_cast<unsigned char>(text[0])));
    double width = ArialWidth(text.substr(0, end), points);
    while (end < text.size()) {
        const std::size_t size =
            std::min(text.size() - end, CharacterSize(static_cast<unsigned char>(text[end])));
        width += ArialWidth(text.substr(end, size), points);
        if (width > maxWidth)
            break;
        end += size;
    }
    return end;
}

} // namespace

double ArialWidth(std::string_view text, double points) {
    long long thousandths = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        thousandths += CharacterWidth(lead);
        i += CharacterSize(lead);
    }
    return static_cast<double>(thousandths) / 1000 * points * TwipsPerPoint;
}

double ArialHeight(double points) {
    return LineHeightEms * points * TwipsPerPoint;
}

std::vector<std::string> WrapArial(std::string_view text, double points, double maxWidth) {
    std::vector<std::string> lines;
    while (!text.empty() && ArialWidth(text, points) > maxWidth) {
        std::size_t end = FittingBytes(text, points, maxWidth);
        std::size_t next = end;
        if (end == text.size())
            break;
        const std::size_t blank = text.substr(0, end + 1).rfind(' ');
        if (blank != std::string_view::npos && blank > 0) {
            end = blank;
            next = blank + 1;
        }
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(next);
    }
    if (!text.empty() || lines.empty())
        lines.emplace_back(text);
    return lines;
}

} // namespace quarnel
