#pragma once

#include <QColor>
#include <QPalette>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QSvgRenderer>
#include <QWidget>

namespace quarnel {

/// One drawn well section: where H, Lw, Le, dw and dc are measured on a well. The drawing keeps its
/// shape at any size, is drawn as vectors at any screen density, and follows the palette: lines and
/// labels take the text colour, the fills are light or dark as the palette is.
class WellSectionPicture : public QWidget {
    Q_OBJECT

public:
    /// `resourcePath` is an SVG drawing such as ":/wellgeometry/well-section-0.svg", whose title
    /// and description become the accessible name and description. A path that cannot be read
    /// leaves the picture empty.
    explicit WellSectionPicture(const QString& resourcePath, QWidget* parent = nullptr);

    /// The size in which the drawing's labels read like the window's own, in device-independent
    /// pixels.
    QSize sizeHint() const override;
    /// The smallest size in which the labels can still be read.
    QSize minimumSizeHint() const override;

    /// Whether the drawing was read and can be painted.
    bool IsValid() const;
    /// Where the drawing lies in the widget: the largest rectangle of its shape, centred. Empty
    /// when the drawing could not be read.
    QRectF PictureRect() const;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Loads the drawing in the palette's colours unless it is. Only a picture that is looked at
    /// costs the time, so that the program starts without it.
    void LoadInPalette() const;

    QString drawing;
    QSize drawingSize;
    mutable QSvgRenderer renderer;
    mutable QColor shownInk;
    mutable bool shownDark = false;
};

/// `drawing` with the ink replaced by `ink` and, when `dark` is set, every light fill by its dark
/// partner.
QString RecolouredWellSection(const QString& drawing, const QColor& ink, bool dark);

/// Whether `palette` shows light text on a dark window.
bool IsDarkPalette(const QPalette& palette);

} // namespace quarnel
