#include "app/program/self_check_run.h"

#include <QApplication>
#include <QIcon>
#include <QSslSocket>
#include <cstdlib>
#include <iostream>

#include "ui/fonts.h"
#include "updates/self_check.h"

namespace kzq {
namespace {

constexpr int pictureSize = 16;

/// What is missing; null for nothing.
const char* missing() {
    if (QIcon(":/pictures/Icon.svg").pixmap(pictureSize).isNull()) {
        return "the pictures cannot be shown";
    }
    if (!QSslSocket::supportsSsl()) {
        return "there is no TLS library";
    }
    return nullptr;
}

}  // namespace

int runSelfCheck(int argc, char** argv, bool screen) {
    if (!screen) {
        qputenv("QT_QPA_PLATFORM", "offscreen");  // otherwise Qt would end the program
    }
    const QApplication application(argc, argv);
    registerFonts();
    if (const char* const what = missing()) {
        std::cerr << "kzq7306: " << what << std::endl;
        return EXIT_FAILURE;
    }
    std::cout << selfCheckLine(KZQ_VERSION) << std::endl;
    return EXIT_SUCCESS;
}

}  // namespace kzq
