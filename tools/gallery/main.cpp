// kzq7306-gallery FOLDER: contact sheets of every part of the window, at the device ratio given by
// QT_SCALE_FACTOR. kzq7306-gallery --check: whether the states of each part look different, and the same on
// another desktop.

#include <QApplication>
#include <QDir>
#include <QMap>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "backup_shots.h"
#include "bring_back_shots.h"
#include "button_shots.h"
#include "carry_shots.h"
#include "contact_sheet.h"
#include "doctor_shots.h"
#include "panel_shots.h"
#include "picture_shots.h"
#include "rows.h"
#include "sound_rows.h"
#include "status_shots.h"
#include "ui/languages.h"
#include "ui/palette.h"
#include "window_shots.h"

namespace {

using namespace kzq::gallery;

/// Cancel never greys out, and the x has two pictures.
constexpr std::array alikeOnPurpose{"Cancel, disabled",
                                    "x, disabled",
                                    "x, pressed",
                                    "Menu_Import_On, hover",
                                    "Menu_Import_On, pressed",
                                    "Menu_Export_On, hover",
                                    "Menu_Export_On, pressed"};

/// Whether the states of one thing ("Import, hover") can be told apart; those that cannot are listed.
bool areDistinct(const QString& sheet, const Shots& shots) {
    const auto thing = [](const Shot& shot) { return shot.caption.section(", ", 0, 0); };
    bool distinct = true;
    for (auto one = shots.begin(); one != shots.end(); ++one) {
        for (auto other = std::next(one); other != shots.end(); ++other) {
            const bool same =
                thing(*one) == thing(*other) && one->pixmap.toImage() == other->pixmap.toImage();
            if (same && std::ranges::find(alikeOnPurpose, other->caption) == alikeOnPurpose.end()) {
                std::fprintf(stderr, "%s: \"%s\" looks like \"%s\"\n", qPrintable(sheet),
                             qPrintable(other->caption), qPrintable(one->caption));
                distinct = false;
            }
        }
    }
    return distinct;
}

/// Whether the same things look as before; those that do not are listed.
bool areAlike(const QString& sheet, const Shots& before, const Shots& now) {
    return std::ranges::equal(before, now, [&sheet](const Shot& one, const Shot& other) {
        const bool alike = one.caption == other.caption && one.pixmap.toImage() == other.pixmap.toImage();
        if (!alike) {
            std::fprintf(stderr, "%s: \"%s\" looks different on another desktop\n", qPrintable(sheet),
                         qPrintable(other.caption));
        }
        return alike;
    });
}

/// A dark one with large type, whose style leaves more to the widgets.
void changeDesktop() {
    QApplication::setStyle("windows");
    QPalette dark(QColor(0x31, 0x36, 0x3B), QColor(0x1B, 0x1E, 0x20));
    dark.setColor(QPalette::Highlight, QColor(0x3D, 0xAE, 0xE9));
    QApplication::setPalette(dark);
    auto large = QApplication::font();
    large.setPointSize(20);
    QApplication::setFont(large);
}

class Folder {
  public:
    Folder(const QString& path, double ratio)
        : folder_(path), ratio_(ratio), checks_(path == "--check"), good_(checks_ || folder_.mkpath(".")) {}

    void save(const QString& name, const Shots& shots, const QColor& ground) {
        if (checks_) {
            const auto before = seen_.find(name);
            good_ =
                (before == seen_.end() ? areDistinct(name, shots) : areAlike(name, *before, shots)) && good_;
            seen_.insert(name, shots);
            return;
        }
        const auto path = folder_.filePath(QString("%1@%2x.png").arg(name).arg(ratio_));
        if (contactSheet(shots, ground).save(path)) {
            return;
        }
        std::fprintf(stderr, "%s could not be written\n", qPrintable(path));
        good_ = false;
    }

    bool checks() const { return checks_; }
    bool good() const { return good_; }

  private:
    QDir folder_;
    QMap<QString, Shots> seen_;
    double ratio_;
    bool checks_;
    bool good_;
};

void drawAll(Folder& folder, double ratio) {
    const QColor darkDesktop(0x22, 0x25, 0x2A);
    const QColor lightDesktop(0xD5, 0xD8, 0xDD);
    folder.save("pictures-in-tray", smallPictures(ratio), kzq::trayColor());
    folder.save("pictures-on-plate", smallPictures(ratio), kzq::KZQBrown());
    folder.save("pictures-large", largePictures(ratio), lightDesktop);
    folder.save("icon-dark", icons(ratio), darkDesktop);
    folder.save("icon-light", icons(ratio), lightDesktop);
    folder.save("buttons", buttons(), kzq::KZQBrown());
    folder.save("rows", rows(), kzq::trayColor());
    folder.save("listening", listening(), kzq::trayColor());
    folder.save("comparing", comparing(), kzq::trayColor());
    folder.save("carrying", carrying(), kzq::trayColor());
    folder.save("panels", panels(), darkDesktop);
    folder.save("panels-light", panels(), lightDesktop);
    folder.save("bring-back", bringBack(), darkDesktop);
    folder.save("backups", backups(), darkDesktop);
    folder.save("doctor", doctor(), darkDesktop);
    folder.save("updates", updateWindows(), darkDesktop);
    folder.save("status", statusLines(), darkDesktop);
    folder.save("window", mainWindows(), darkDesktop);
    folder.save("sizes", windowSizes(), darkDesktop);
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    if (argc != 2 && argc != 3) {
        std::fputs("kzq7306-gallery FOLDER [LANGUAGE], or --check\n", stderr);
        return 2;
    }
    if (argc == 3) {
        kzq::QtCatalogue::use(QLocale(QString::fromLocal8Bit(argv[2])));
    }
    Folder folder(QString::fromLocal8Bit(argv[1]), application.devicePixelRatio());
    drawAll(folder, application.devicePixelRatio());
    if (folder.checks()) {
        changeDesktop();
        drawAll(folder, application.devicePixelRatio());
    }
    return folder.good() ? 0 : 1;
}
