#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <algorithm>
#include <cmath>

#include "app/main_window.h"
#include "gallery/bystanders.h"
#include "slots/slot.h"
#include "ui/alert_panel.h"
#include "ui/background.h"
#include "ui/fonts.h"
#include "ui/image_button.h"
#include "ui/panels/about.h"
#include "ui/panels/about_window.h"
#include "ui/panels/doctor_panel.h"
#include "ui/panels/menu.h"
#include "ui/panels/menu_item.h"
#include "ui/panels/menu_view.h"
#include "ui/panels/progress.h"
#include "ui/picture_button.h"
#include "ui/picture_view.h"
#include "ui/pictures.h"
#include "ui/shield.h"
#include "updates/windows/firmware_updater.h"
#include "updates/windows/firmware_updater_progress.h"
#include "updates/windows/software_update.h"

namespace kzq {
namespace {

constexpr std::uint8_t loops = 20;

QString pictureOf(const QWidget& widget) {
    if (const auto* const view = qobject_cast<const PictureView*>(&widget)) {
        return view->picture();
    }
    if (const auto* const button = qobject_cast<const PictureButton*>(&widget)) {
        return button->picture();
    }
    const auto* const button = qobject_cast<const ImageButton*>(&widget);
    return button != nullptr ? button->pictureName() : QString();
}

void picturesAreThere(const QWidget& window) {
    for (const auto* const widget : window.findChildren<QWidget*>()) {
        const auto name = pictureOf(*widget);
        EXPECT_TRUE(name.isEmpty() || picture(name))
            << widget->metaObject()->className() << " " << name.toStdString();
    }
}

class Walk : public testing::Test {
  protected:
    gallery::StillApplication application;
    gallery::StillDialogs dialogs;
    gallery::StillExecutor executor;
    gallery::StillHttp http;
    gallery::StillRows delegate;
    Product product{"2.1.0", "https://www.kzq.example/"};
};

TEST_F(Walk, EveryPictureOfTheMainWindowIsThere) {
    MainWindow window;
    std::vector<std::unique_ptr<Slot>> rows;
    for (std::uint8_t number = 1; number <= loops; ++number) {
        for (const auto context : {Slot::importContext, Slot::exportContext}) {
            const QString place(context == Slot::importContext ? "import slot %1" : "export slot %1");
            auto row =
                Slot::slotNumber(number, context, application, window.findChild<QWidget*>(place.arg(number)));
            row->setDelegate(&delegate);
            row->setOccupied(true);
            row->refresh();
            rows.push_back(std::move(row));
        }
    }
    const auto menu = Menu::menu(application, dialogs, window.contentView(), product);
    picturesAreThere(window);
}

/// How bright it looks, from 0 to 1.
double luminance(QColor colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Of the lightest pixel in there to the darkest.
double contrastIn(const QImage& picture) {
    double lightest = 0;
    double darkest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto here = luminance(picture.pixelColor(x, y));
            lightest = std::max(lightest, here);
            darkest = std::min(darkest, here);
        }
    }
    return (lightest + 0.05) / (darkest + 0.05);
}

TEST_F(Walk, NamesAtRestCanBeReadUnderTheShield) {
    registerFonts();
    MainWindow window;
    auto* const place = window.findChild<QWidget*>("import slot 7");
    const auto row = Slot::slotNumber(7, Slot::importContext, application, place);
    row->setOccupied(true);
    row->refresh();
    window.show();
    const auto name = QRect(row->field()->mapTo(&window, QPoint()), row->field()->size());
    EXPECT_GE(contrastIn(window.grab(name).toImage()), 4.5);
    window.addShield();
    const auto washed = contrastIn(window.grab(name).toImage());
    EXPECT_GE(washed, 3.0);
    RecordProperty("contrast", std::to_string(washed));
}

TEST_F(Walk, EveryPictureOfThePanelsIsThere) {
    AlertPanel alert(yesOrNoAlertWithHeadline("Erase?"));
    picturesAreThere(alert);
    DoctorPanel doctor(nullptr);
    picturesAreThere(doctor);
    const auto progress = Progress::progress([] {});
    picturesAreThere(progress->window());
    const auto about = About::about(
        application, executor, dialogs, [] { return std::optional<std::string>("1.05"); }, product);
    about->showWindow();
    picturesAreThere(about->window());
    const auto flashing = FirmwareUpdaterProgress::progress(executor);
    picturesAreThere(flashing->window());
    const auto offer = FirmwareUpdater::updater({.executor = executor,
                                                 .http = http,
                                                 .factoryBlank = [] { return false; },
                                                 .version = [] { return std::optional<std::string>("1.05"); },
                                                 .softwareVersion = "2.1.0",
                                                 .home = {},
                                                 .server = {},
                                                 .showHeadline = {},
                                                 .appendNotes = {}});
    picturesAreThere(offer->window());
    const auto updater = std::make_shared<SUUpdater>(UpdaterEnvironment{executor, http, {}, {}, {}, {}});
    const auto update = SoftwareUpdate::softwareUpdate({updater, "2.1.0", {}});
    picturesAreThere(update->window());
}

}  // namespace
}  // namespace kzq
