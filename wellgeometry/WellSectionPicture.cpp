#include "wellgeometry/WellSectionPicture.h"

#include "widgets/AccessibleRole.h"

#include <QEvent>
#include <QFile>
#include <QPainter>
#include <QXmlStreamReader>

#include <array>

// The pictures lie in a static library, where a linker drops their registration unless it is asked
// for, and the macro works outside any namespace only.
static void RegisterPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace quarnel {

namespace {

/// The colour of every line and label in the drawings.
constexpr QLatin1StringView Ink("#202124");

struct FillPair {
    QLatin1StringView light; ///< as it stands in the drawing
    QLatin1StringView dark;  ///< in its place on a dark window
};

constexpr std::array FillPairs = {
    FillPair{QLatin1StringView("#f1dfb5"),
             QLatin1StringView("#5a4826")}, // soil above the water table
    FillPair{QLatin1StringView("#d4e1df"),
             QLatin1StringView("#2c3f47")}, // soil below the water table
    FillPair{QLatin1StringView("#86c1ee"), QLatin1StringView("#1f629c")}, // water in the well
    FillPair{QLatin1StringView("#1565a6"), QLatin1StringView("#7cc0f7")}, // water table
    FillPair{QLatin1StringView("#c6cdb8"), QLatin1StringView("#4c553f")}, // bentonite
    FillPair{QLatin1StringView("#f3eee2"), QLatin1StringView("#3b372e")}, // filter pack, drained
    FillPair{QLatin1StringView("#dcebf3"), QLatin1StringView("#243641")}, // filter pack, saturated
    FillPair{QLatin1StringView("#bcb5a6"), QLatin1StringView("#7d776b")}, // gravel
    FillPair{QLatin1StringView("#a7b0b8"), QLatin1StringView("#69737c")}, // casing and screen
    FillPair{QLatin1StringView("#cdc2b6"), QLatin1StringView("#4d453e")}, // impervious bottom
};

constexpr QSize SmallestReadable(210, 245);

QString ReadDrawing(const QString& resourcePath) {
    QFile file(resourcePath);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

/// The text of the first element called `name`, on one line.
QString ElementText(const QString& drawing, QLatin1StringView name) {
    QXmlStreamReader reader(drawing);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == name)
            return reader.readElementText().simplified();
    }
    return QString();
}

/// The size that the drawing gives itself; not valid where it gives none.
QSize DrawingSize(const QString& drawing) {
    QXmlStreamReader reader(drawing);
    if (!reader.readNextStartElement())
        return QSize();
    const QXmlStreamAttributes attributes = reader.attributes();
    bool widthGiven = false;
    bool heightGiven = false;
    const QSize size(attributes.value(QLatin1StringView("width")).toInt(&widthGiven),
                     attributes.value(QLatin1StringView("height")).toInt(&heightGiven));
    return widthGiven && heightGiven ? size : QSize();
}

} // namespace

QString RecolouredWellSection(const QString& drawing, const QColor& ink, bool dark) {
    QString recoloured = drawing;
    if (dark) {
        for (const FillPair& fill : FillPairs)
            recoloured.replace(fill.light, fill.dark);
    }
    return recoloured.replace(Ink, ink.name(QColor::HexRgb));
}

bool IsDarkPalette(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

WellSectionPicture::WellSectionPicture(const QString& resourcePath, QWidget* parent)
    : QWidget(parent) {
    RegisterPictures();
    drawing = ReadDrawing(resourcePath);
    SetAccessibleRole(this, QAccessible::Graphic);
    setAccessibleName(ElementText(drawing, QLatin1StringView("title")));
    setAccessibleDescription(ElementText(drawing, QLatin1StringView("desc")));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    drawingSize = DrawingSize(drawing);
}

QSize WellSectionPicture::sizeHint() const {
    return drawingSize.isValid() ? drawingSize : minimumSizeHint();
}

QSize WellSectionPicture::minimumSizeHint() const {
    return SmallestReadable;
}

bool WellSectionPicture::IsValid() const {
    LoadInPalette();
    return renderer.isValid();
}

QRectF WellSectionPicture::PictureRect() const {
    if (!IsValid())
        return {};
    LoadInPalette();
    const QSizeF size =
        renderer.viewBoxF().size().scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    return QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
}

void WellSectionPicture::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
    case QEvent::ActivationChange:
        update();
        break;
    default:
        break;
    }
}

void WellSectionPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    renderer.render(&painter, PictureRect());
}

void WellSectionPicture::LoadInPalette() const {
    const QColor ink = palette().color(QPalette::WindowText);
    const bool dark = IsDarkPalette(palette());
    if (drawing.isEmpty() || (shownInk == ink && shownDark == dark))
        return;
    shownInk = ink;
    shownDark = dark;
    renderer.load(RecolouredWellSection(drawing, ink, dark).toUtf8());
}

} // namespace quarnel
