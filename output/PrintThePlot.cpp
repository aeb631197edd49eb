#include "output/PrintThePlot.h"

#include "app/MessageBoxes.h"
#include "app/QtTexts.h"
#include "project/ProjectFileDialogs.h"
#include "project/SaveFile.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <optional>

namespace quarnel {

namespace {

const QString NoPrinterQuestion =
    QStringLiteral("The system has no default printer. Do you want to save the page as a PDF file "
                   "instead?");
const QString PrintingFailed =
    QStringLiteral("The printer \"%1\" did not take the document \"%2\". Nothing is lost: please "
                   "check the printer and print again.");

bool SaveAsPdf(QWidget* parent, const QString& title, const PagesFor& pagesFor) {
    if (!AskYesNo(parent, NoPrinterQuestion))
        return false;
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

} // namespace

bool PrintDocument(QWidget* parent, const QString& title, const PagesFor& pagesFor) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        return SaveAsPdf(parent, title, pagesFor);
    bool printed = false;
    {
        const BusyPointer busy;
        QPrinter printer(info, QPrinter::HighResolution);
        printer.setDocName(title);
        printer.setCreator(ApplicationTitle());
        printed = printer.isValid() &&
                  PaintPages(printer, pagesFor(PaperOf(printer.pageLayout()))) &&
                  printer.printerState() != QPrinter::Error &&
                  printer.printerState() != QPrinter::Aborted;
    }
    if (!printed)
        ShowMessage(parent, PrintingFailed.arg(info.printerName(), title));
    return printed;
}

} // namespace quarnel
