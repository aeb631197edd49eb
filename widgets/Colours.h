#pragma once

#include <QColor>

namespace quarnel {

/// What text must have to be read, and a sign to be seen (Web Content Accessibility Guidelines).
inline constexpr double TextContrast = 4.5;
inline constexpr double SignContrast = 3.0;

/// The colour that lies `part` of the way from `a` to `b`.
QColor Between(const QColor& a, const QColor& b, double part);

/// How far two colours stand apart, 1 to 21, by their relative luminance.
double ContrastOf(const QColor& a, const QColor& b);

/// `colour`, brought nearer to `text` until it has `least` contrast with `ground`; the text itself
/// where nothing between has.
QColor WithContrast(const QColor& colour, const QColor& ground, const QColor& text, double least);

/// `text` greyed against `ground`: plainly paler, yet to be read.
QColor Dimmed(const QColor& text, const QColor& ground);

} // namespace quarnel
