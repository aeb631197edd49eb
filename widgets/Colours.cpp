#include "widgets/Colours.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

/// How much of the text's colour its grey keeps.
constexpr double DimmedPart = 0.6;
/// Steps between a colour and the text in which more contrast is looked for.
constexpr int ContrastSteps = 20;

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

QColor Between(const QColor& a, const QColor& b, double part) {
    const auto mix = [part](int from, int to) { return qRound(from + (to - from) * part); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

double ContrastOf(const QColor& a, const QColor& b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QColor WithContrast(const QColor& colour, const QColor& ground, const QColor& text, double least) {
    for (int step = 0; step < ContrastSteps; ++step) {
        const QColor nearer = Between(colour, text, double(step) / ContrastSteps);
        if (ContrastOf(nearer, ground) >= least)
            return nearer;
    }
    return text;
}

QColor Dimmed(const QColor& text, const QColor& ground) {
    return WithContrast(Between(ground, text, DimmedPart), ground, text, TextContrast);
}

} // namespace quarnel
