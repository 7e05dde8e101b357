#include <gmock/gmock.h>

#include "app/application.h"
#include "ui/fonts.h"

/// Main of the tests of the whole application, which sees keys and mouse before its windows do.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "1");
    testing::InitGoogleMock(&argc, argv);
    const kzq::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    kzq::registerFonts();
    return RUN_ALL_TESTS();
}
