#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"

int main(int argc, char** argv) {
    quarnel::QuarnelApplication application(argc, argv);
    const auto window = quarnel::SetUpMainWindow();
    quarnel::ResetProject(*window);
    window->StartUp();
    return quarnel::QuarnelApplication::exec();
}
