#pragma once

#include "output/PagePainter.h"

#include <QString>

class QWidget;

namespace quarnel {

/// Prints a document on the system's default printer. Where there is none, says so and offers to
/// save the pages as a PDF file; a printer that fails gives a message. Returns whether the pages
/// went to the printer or into a file.
bool PrintDocument(QWidget* parent, const QString& title, const PagesFor& pagesFor);

/// Asks for a name and saves the document as a PDF file. A file that cannot be written gives a
/// message. Returns whether it was saved.
bool SaveDocumentAsPdf(QWidget* parent, const QString& title, const PagesFor& pagesFor);

} // namespace quarnel
