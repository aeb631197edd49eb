#include "tests/output/ArialMeasure.h"

#include "output/Drawing.h"
#include "project/TextColumns.h"

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

int CharacterWidth(unsigned char lead) {
    if (lead >= 0x20 && lead < 0x7F)
        return AsciiWidths[lead - 0x20U];
    return lead >= 0xE0 ? FullWidth : NearLatinWidth;
}

} // namespace

double ArialMeasure::Width(std::string_view text, double points, bool) const {
    long long thousandths = 0;
    for (std::size_t i = 0; i < text.size(); i += CharacterSize(text[i])) {
        thousandths += CharacterWidth(static_cast<unsigned char>(text[i]));
        ++measured_;
    }
    return static_cast<double>(thousandths) / 1000 * points * TwipsPerPoint;
}

double ArialMeasure::Height(double points) const {
    return LineHeightEms * points * TwipsPerPoint;
}

} // namespace quarnel
