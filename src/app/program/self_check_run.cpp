#include "app/program/self_check_run.h"

#include <QApplication>
#include <QIcon>
#include <cstdlib>
#include <iostream>
#include <string>

#include "app/later/later_parts.h"
#include "ui/fonts.h"
#include "updates/self_check.h"

namespace kzq {
namespace {

constexpr int pictureSize = 16;

/// What is missing; empty for nothing.
std::string missing() {
    if (QIcon(":/pictures/Icon.svg").pixmap(pictureSize).isNull()) {
        return "the pictures cannot be shown";
    }
    const auto later = loadLaterParts();
    if (!later) {
        return later.error();
    }
    return later->hasTls() ? "" : "there is no TLS library";
}

}  // namespace

int runSelfCheck(int argc, char** argv, bool screen) {
    if (!screen) {
        qputenv("QT_QPA_PLATFORM", "offscreen");  // otherwise Qt would end the program
    }
    const QApplication application(argc, argv);
    registerFonts();
    if (const auto what = missing(); !what.empty()) {
        std::cerr << "kzq7306: " << what << std::endl;
        return EXIT_FAILURE;
    }
    std::cout << selfCheckLine(KZQ_VERSION) << std::endl;
    return EXIT_SUCCESS;
}

}  // namespace kzq
