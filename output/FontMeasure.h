#pragma once

#include "output/TextMeasure.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>
#include <array>

namespace quarnel {

/// What layouts and painter know of a font. It is asked at one large size and its widths scaled, so
/// that a text has the same proportions on screen, on paper and in a layout. Needs Qt's Gui
/// application object.
class FontMeasure : public TextMeasure {
public:
    explicit FontMeasure(const QFont& font);

    double Width(std::string_view text, double points, bool bold = false) const override;
    double Height(double points) const override;

    /// The same in the font's own size, which is 1.
    double WidthEms(const QString& text, bool bold) const;
    double HeightEms(bool bold) const;
    double AscentEms(bool bold) const;

private:
    const QFontMetricsF& Metrics(bool bold) const { return bold ? bold_ : upright_; }

    QFontMetricsF upright_;
    QFontMetricsF bold_;
    /// Line breaking asks for one character at a time, a long text for the same ones many times.
    mutable std::array<QHash<QString, double>, 2> characterEms_;
};

} // namespace quarnel
