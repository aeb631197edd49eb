#include "output/FontMeasure.h"

#include "output/Drawing.h"
#include "widgets/QtTexts.h"

namespace quarnel {

namespace {

/// Large enough that what a font rounds to whole pixels is lost in it.
constexpr int PixelsOfEm = 1000;
/// A character is one or two units of UTF-16.
constexpr qsizetype LongestCharacter = 2;
/// Characters kept: those of a language, not those of every text there is.
constexpr qsizetype MostKept = 4096;

QFontMetricsF MetricsOf(QFont font, bool bold) {
    font.setBold(bold);
    font.setPixelSize(PixelsOfEm);
    return QFontMetricsF(font);
}

} // namespace

FontMeasure::FontMeasure(const QFont& font)
    : upright_(MetricsOf(font, false))
    , bold_(MetricsOf(font, true)) {}

double FontMeasure::Width(std::string_view text, double points, bool bold) const {
    return WidthEms(ToQString(text), bold) * points * TwipsPerPoint;
}

double FontMeasure::Height(double points) const {
    return HeightEms(false) * points * TwipsPerPoint;
}

double FontMeasure::WidthEms(const QString& text, bool bold) const {
    if (text.size() > LongestCharacter)
        return Metrics(bold).horizontalAdvance(text) / PixelsOfEm;
    QHash<QString, double>& kept = characterEms_[bold ? 1 : 0];
    if (const auto found = kept.constFind(text); found != kept.constEnd())
        return *found;
    if (kept.size() >= MostKept)
        kept.clear();
    return *kept.insert(text, Metrics(bold).horizontalAdvance(text) / PixelsOfEm);
}

double FontMeasure::HeightEms(bool bold) const {
    return Metrics(bold).height() / PixelsOfEm;
}

double FontMeasure::AscentEms(bool bold) const {
    return Metrics(bold).ascent() / PixelsOfEm;
}

} // namespace quarnel
