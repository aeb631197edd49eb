#pragma once

#include "output/OutputFile.h"
#include "output/PagePainter.h"

#include <QString>

namespace quarnel {

/// How a document is called.
struct DocumentNames {
    QString title;  ///< of the print job and the PDF file
    QString what;   ///< in messages: "plot"
    QString ending; ///< of the name suggested for its PDF file: "-report.pdf"
};

/// Prints a document on the system's default printer. Where there is none, says so and offers to
/// save the pages as a PDF file; a printer that fails gives a message. Returns whether the pages
/// went to the printer or into a file.
bool PrintDocument(const OutputOwner& owner, const DocumentNames& names, const PagesFor& pagesFor);

/// Asks for a name, suggesting one, and saves the document as a PDF file. A file that cannot be
/// written, or is the project's own, gives a message. Returns whether it was saved.
bool SaveDocumentAsPdf(const OutputOwner& owner, const DocumentNames& names,
                       const PagesFor& pagesFor);

} // namespace quarnel
