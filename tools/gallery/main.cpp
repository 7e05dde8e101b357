// kzq7306-gallery FOLDER: contact sheets of everything the window is made of, at 1, 1.5 and 2 device pixels.

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <string>

#include "picture_sheet.h"

namespace {

bool save(const QDir& folder, const std::vector<kzq::gallery::Sheet>& sheets, double scale) {
    bool saved = true;
    for (const auto& [name, image] : sheets) {
        const auto path = folder.filePath(QString("%1@%2x.png").arg(name).arg(scale));
        if (image.save(path)) continue;
        std::fprintf(stderr, "%s could not be written\n", qPrintable(path));
        saved = false;
    }
    return saved;
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("kzq7306-gallery FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(".")) return 1;
    bool saved = true;
    for (const double scale : {1.0, 1.5, 2.0})
        saved = save(folder, kzq::gallery::pictureSheets(scale), scale) && saved;
    return saved ? 0 : 1;
}
