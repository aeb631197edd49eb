#include "output/PrintDocument.h"

#include "project/Files.h"
#include "project/ProjectFileDialogs.h"
#include "system/PrintQueue.h"
#include "system/ReplaceFile.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QPageLayout>
#include <cstddef>
#include <optional>
#include <string>

namespace quarnel {

namespace {

const QString NoPrinterQuestion =
    QStringLiteral("The system has no default printer. Do you want to save the page as a PDF file "
                   "instead?");
const QString PrintingFailed = QStringLiteral(
    "The printer \"%1\" did not take the document \"%2\" (%3). Nothing is lost: please "
    "check the printer and print again.");
const QString PrinterStopped =
    QStringLiteral("The printer \"%1\" is stopped. It has taken the document \"%2\" and prints it "
                   "when it is started again.");
const QString NoPages = QStringLiteral("its pages could not be made");

bool SaveAsPdfInstead(const OutputOwner& owner, const DocumentNames& names,
                      const PagesFor& pagesFor) {
    return AskYesNo(owner.window, NoPrinterQuestion) && SaveDocumentAsPdf(owner, names, pagesFor);
}

/// The printer's own sheet and all of it that the printer can reach.
QPageLayout LayoutOf(const Printer& printer) {
    if (!(printer.sheetWidth > 0 && printer.sheetHeight > 0))
        return PdfPageLayout();
    const QMarginsF margins(printer.marginLeft, printer.marginTop, printer.marginRight,
                            printer.marginBottom);
    return {QPageSize(QSizeF(printer.sheetWidth, printer.sheetHeight), QPageSize::Point),
            QPageLayout::Portrait, margins, QPageLayout::Point, margins};
}

/// Hands the pages to a printer. What went wrong, in words; empty when all is well.
std::optional<QString> FailureOfPrinting(const Printer& printer, const QString& title,
                                         const PagesFor& pagesFor) {
    const BusyPointer busy;
    const QByteArray bytes = PdfOfPages(LayoutOf(printer), title, pagesFor);
    if (bytes.isEmpty())
        return NoPages;
    const auto refusal = RefusalOfPrinting(
        printer, title.toStdString(), {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return refusal ? std::optional(ToQString(*refusal)) : std::nullopt;
}

} // namespace

bool SaveDocumentAsPdf(const OutputOwner& owner, const DocumentNames& names,
                       const PagesFor& pagesFor) {
    const QString path = ChooseNameToSave(
        owner.window, QStringLiteral("Save As PDF"),
        {QStringLiteral("PDF (*.pdf)(*.pdf)"), QStringLiteral("All Files (*.*)(*)")},
        SuggestedFileName(owner.project, names.ending));
    if (path.isEmpty())
        return false;
    return SaveOutput(owner, names.what, path, [&](const std::string& name) {
        const QByteArray bytes = PdfOfPages(PdfPageLayout(), names.title, pagesFor);
        if (bytes.isEmpty())
            return FileFailure::OutOfMemory;
        return SaveFileBytes(name, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    });
}

bool PrintDocument(const OutputOwner& owner, const DocumentNames& names, const PagesFor& pagesFor) {
    const std::optional<Printer> printer = DefaultPrinter();
    if (!printer)
        return SaveAsPdfInstead(owner, names, pagesFor);
    const QString name = ToQString(printer->name);
    if (const auto failure = FailureOfPrinting(*printer, names.title, pagesFor)) {
        ShowMessage(owner.window, PrintingFailed.arg(name, names.title, *failure));
        return false;
    }
    if (IsStopped(*printer))
        ShowMessage(owner.window, PrinterStopped.arg(name, names.title));
    return true;
}

} // namespace quarnel
