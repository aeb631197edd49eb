#include "system/PrintQueue.h"

#include <array>
#include <cups/cups.h>
#include <memory>

namespace quarnel {

namespace {

/// CUPS counts sheets in hundredths of a millimetre.
constexpr double PointsOfCupsUnit = 72.0 / 2540;

struct FreeDestination {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
struct DeleteAnswer {
    void operator()(ipp_t* answer) const { ippDelete(answer); }
};
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;
using Answer = std::unique_ptr<ipp_t, DeleteAnswer>;

/// What the queue says about the printer; empty where it does not answer.
Answer PrinterAttributes(const std::string& name) {
    static constexpr std::array<const char*, 2> Wanted = {"media-col-default", "printer-state"};
    std::array<char, HTTP_MAX_URI> uri{};
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                     "localhost", 0, "/printers/%s", name.c_str());
    ipp_t* request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(Wanted.size()), nullptr, Wanted.data());
    return Answer(cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"));
}

/// A length of a collection, in points; 0 where it is not named.
double Length(ipp_t* collection, const char* name) {
    ipp_attribute_t* length = ippFindAttribute(collection, name, IPP_TAG_INTEGER);
    return length != nullptr ? ippGetInteger(length, 0) * PointsOfCupsUnit : 0;
}

void ReadSheet(ipp_t* attributes, Printer& printer) {
    ipp_attribute_t* media =
        ippFindAttribute(attributes, "media-col-default", IPP_TAG_BEGIN_COLLECTION);
    if (media == nullptr)
        return;
    ipp_t* sheet = ippGetCollection(media, 0);
    ipp_attribute_t* size = ippFindAttribute(sheet, "media-size", IPP_TAG_BEGIN_COLLECTION);
    if (size == nullptr)
        return;
    printer.sheetWidth = Length(ippGetCollection(size, 0), "x-dimension");
    printer.sheetHeight = Length(ippGetCollection(size, 0), "y-dimension");
    printer.marginLeft = Length(sheet, "media-left-margin");
    printer.marginTop = Length(sheet, "media-top-margin");
    printer.marginRight = Length(sheet, "media-right-margin");
    printer.marginBottom = Length(sheet, "media-bottom-margin");
}

bool WasTaken(ipp_status_t status) {
    return status >= IPP_STATUS_OK && status < IPP_STATUS_REDIRECTION_OTHER_SITE;
}

/// Why the last request of this thread was refused.
std::string LastRefusal() {
    if (WasTaken(cupsLastError()))
        return "the connection to it broke";
    const char* words = cupsLastErrorString();
    return words != nullptr && *words != '\0' ? words : "no reason given";
}

/// Sends the document of a job. Everything of it has arrived when an answer comes and is a success;
/// where the connection breaks there is none, and the library's last status is an older one.
bool SendDocument(const Printer& printer, int job, const std::string& title, std::string_view pdf) {
    if (cupsStartDocument(CUPS_HTTP_DEFAULT, printer.name.c_str(), job, title.c_str(),
                          "application/pdf", 1) != HTTP_STATUS_CONTINUE)
        return false;
    const bool written =
        cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.data(), pdf.size()) == HTTP_STATUS_CONTINUE;
    const std::string resource = "/printers/" + printer.name;
    const Answer answer(cupsGetResponse(CUPS_HTTP_DEFAULT, resource.c_str()));
    return written && answer && WasTaken(ippGetStatusCode(answer.get()));
}

} // namespace

std::optional<Printer> DefaultPrinter() {
    const Destination destination(cupsGetNamedDest(CUPS_HTTP_DEFAULT, nullptr, nullptr));
    if (!destination)
        return std::nullopt;
    Printer printer;
    printer.name = destination->name;
    if (const Answer attributes = PrinterAttributes(printer.name))
        ReadSheet(attributes.get(), printer);
    return printer;
}

std::optional<std::string> RefusalOfPrinting(const Printer& printer, const std::string& title,
                                             std::string_view pdf) {
    const Destination destination(
        cupsGetNamedDest(CUPS_HTTP_DEFAULT, printer.name.c_str(), nullptr));
    if (!destination)
        return "the printer is gone";
    const int job = cupsCreateJob(CUPS_HTTP_DEFAULT, printer.name.c_str(), title.c_str(),
                                  destination->num_options, destination->options);
    if (job == 0)
        return LastRefusal();
    if (SendDocument(printer, job, title, pdf))
        return std::nullopt;
    std::string refusal = LastRefusal();
    cupsCancelJob2(CUPS_HTTP_DEFAULT, printer.name.c_str(), job, 0);
    return refusal;
}

bool IsStopped(const Printer& printer) {
    const Answer attributes = PrinterAttributes(printer.name);
    ipp_attribute_t* state =
        attributes ? ippFindAttribute(attributes.get(), "printer-state", IPP_TAG_ENUM) : nullptr;
    return state != nullptr && ippGetInteger(state, 0) == IPP_PSTATE_STOPPED;
}

} // namespace quarnel
