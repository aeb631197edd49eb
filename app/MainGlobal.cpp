#include "app/MainGlobal.h"

#include "app/BRMainForm.h"

namespace quarnel {

std::unique_ptr<BRMainForm> SetUpMainWindow() {
    return std::make_unique<BRMainForm>();
}

void ResetProject(BRMainForm& window) {
    ResetAnalysis(window.Current());
    window.ShowState();
}

} // namespace quarnel
