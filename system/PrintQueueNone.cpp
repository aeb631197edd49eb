#include "system/PrintQueue.h"

// Built where there is no printing system that the program knows: it saves pages as PDF there.

namespace quarnel {

std::optional<Printer> DefaultPrinter() {
    return std::nullopt;
}

std::optional<std::string> RefusalOfPrinting(const Printer& /*printer*/,
                                             const std::string& /*title*/,
                                             std::string_view /*pdf*/) {
    return "there is no printing system";
}

bool IsStopped(const Printer& /*printer*/) {
    return false;
}

} // namespace quarnel
