#include "output/PrintDocument.h"

#include "project/ProjectFileDialogs.h"
#include "system/PrintQueue.h"
#include "system/ReplaceFile.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QDir>
#include <QPrinter>
#include <QPrinterInfo>
#include <optional>

namespace quarnel {

namespace {

const QString NoPrinterQuestion =
    QStringLiteral("The system has no default printer. Do you want to save the page as a PDF file "
                   "instead?");
const QString PrintingFailed =
    QStringLiteral("The printer \"%1\" did not take the document \"%2\"%3. Nothing is lost: please "
                   "check the printer and print again.");
const QString PrinterStopped =
    QStringLiteral("The printer \"%1\" is stopped. It has taken the document \"%2\" and prints it "
                   "when it is started again.");
const QString NoRoom = QStringLiteral("there is no room for its pages in the folder %1");

bool SaveAsPdfInstead(QWidget* parent, const QString& title, const PagesFor& pagesFor) {
    return AskYesNo(parent, NoPrinterQuestion) && SaveDocumentAsPdf(parent, title, pagesFor);
}

/// The printer's own sheet and all of it that the printer can reach: by itself Qt takes the
/// country's sheet and margins of its own.
void UseWholePrintableArea(QPrinter& printer, const QPageSize& sheet) {
    if (sheet.isValid())
        printer.setPageSize(sheet);
    const QPageLayout layout = printer.pageLayout();
    printer.setPageMargins(layout.minimumMargins(), layout.units());
}

/// Hands the pages to a printer. What went wrong, in words; empty when all is well.
std::optional<QString> FailureOfPrinting(const QPrinterInfo& info, const QString& title,
                                         const PagesFor& pagesFor) {
    const BusyPointer busy;
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setCreator(ApplicationTitle());
    if (!printer.isValid())
        return QString();
    UseWholePrintableArea(printer, info.defaultPageSize());
    const Pages pages = pagesFor(PaperOf(printer.pageLayout()));
    if (!HasRoomForPages(pages.count))
        return NoRoom.arg(QDir::toNativeSeparators(QDir::tempPath()));
    if (!PaintPages(printer, pages) || printer.printerState() == QPrinter::Error ||
        printer.printerState() == QPrinter::Aborted)
        return QString();
    if (const QString refusal = RefusalOfLastDocument(); !refusal.isEmpty())
        return refusal;
    return std::nullopt;
}

/// Whether a printer stands still; asked anew, since the default printer's data may be old.
bool IsStopped(const QString& printerName) {
    const QPrinter::PrinterState state = QPrinterInfo::printerInfo(printerName).state();
    return state == QPrinter::Error || state == QPrinter::Aborted;
}

} // namespace

bool SaveDocumentAsPdf(QWidget* parent, const QString& title, const PagesFor& pagesFor) {
    const QString path = ChooseNameToSave(
        parent, QStringLiteral("Save As PDF"),
        {QStringLiteral("PDF (*.pdf)(*.pdf)"), QStringLiteral("All Files (*.*)(*)")});
    if (path.isEmpty())
        return false;
    FileFailure failure = FileFailure::OutOfMemory;
    {
        const BusyPointer busy;
        const QByteArray bytes = PdfOfPages(PdfPageLayout(), title, pagesFor);
        if (!bytes.isEmpty())
            failure = SaveFileBytes(ToUtf8(path),
                                    {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
    if (failure == FileFailure::None)
        return true;
    ShowMessage(parent, ToQString(FileErrorMessage(failure)));
    return false;
}

bool PrintDocument(QWidget* parent, const QString& title, const PagesFor& pagesFor) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        return SaveAsPdfInstead(parent, title, pagesFor);
    const QString name = info.printerName();
    if (const auto failure = FailureOfPrinting(info, title, pagesFor)) {
        const QString reason =
            failure->isEmpty() ? QString() : QStringLiteral(" (%1)").arg(*failure);
        ShowMessage(parent, PrintingFailed.arg(name, title, reason));
        return false;
    }
    if (IsStopped(name))
        ShowMessage(parent, PrinterStopped.arg(name, title));
    return true;
}

} // namespace quarnel
