#include "app/MainGlobal.h"

#include "app/BRMainForm.h"
#include "app/GeneralTools.h"
#include "kcompute/Analysis.h"
#include "system/Locale.h"

namespace quarnel {

namespace {
/// Twips that the main window leaves free of the screen.
constexpr int WidthMargin = 200;
constexpr int HeightMargin = 500;
constexpr int Top = 5;
} // namespace

std::string MainWindowTitle(const std::string& currentProjectFile) {
    std::string title = "Quarnel: Bouwer-Rice Slug Test Analysis";
    if (!currentProjectFile.empty())
        title += "/ " + currentProjectFile;
    return title;
}

std::unique_ptr<BRMainForm> SetUpMainWindow() {
    auto window = std::make_unique<BRMainForm>();
    SizeWindowToScreen(window.get(), WidthMargin, HeightMargin, Top);
    window->Current().state.DecimalSeparator = SystemDecimalSeparator();
    return window;
}

void ResetProject(BRMainForm& window) {
    ResetAnalysis(window.Current());
    window.ShowState();
}

} // namespace quarnel
