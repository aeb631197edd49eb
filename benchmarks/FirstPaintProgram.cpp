// The program's start, up to its painted main window.

#include "FirstPaint.h"
#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"

int main(int argc, char** argv) {
    const quarnel::QuarnelApplication application(argc, argv);
    const auto window = quarnel::SetUpMainWindow();
    quarnel::ResetProject(*window);
    new FirstPaint(window.get());
    window->StartUp();
    return quarnel::QuarnelApplication::exec();
}
