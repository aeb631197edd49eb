#include "tests/gui/WindowTestSupport.h"

namespace quarnel::windowtest {

class TestMainWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void StartsWithTheProgramsTitle() {
        Program program;
        QVERIFY(program.Window().isVisible());
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestMainWindow)
#include "test_main_window.moc"
