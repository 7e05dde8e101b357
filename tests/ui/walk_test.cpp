#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>

#include "app/main_window.h"
#include "gallery/bystanders.h"
#include "slots/slot.h"
#include "ui/alert_panel.h"
#include "ui/background.h"
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

bool isControl(const QWidget& widget, QAccessible::Role role) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           (widget.focusPolicy() & Qt::TabFocus) || role == QAccessible::MenuItem ||
           role == QAccessible::ProgressBar;
}

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

/// The number of controls in `window`. Each must have an accessible role and name, and its picture must
/// exist.
int walk(QWidget& window) {
    int controls = 0;
    for (auto* const widget : window.findChildren<QWidget*>()) {
        const auto who = std::string(widget->metaObject()->className()) + " \"" +
                         widget->objectName().toStdString() + "\"";
        auto* const told = QAccessible::queryAccessibleInterface(widget);
        const auto role = told != nullptr ? told->role() : QAccessible::NoRole;
        if (isControl(*widget, role) && !widget->objectName().startsWith("qt_")) {
            ++controls;
            EXPECT_NE(told == nullptr ? QString() : told->text(QAccessible::Name), QString()) << who;
            const bool ground = widget->size() == widget->parentWidget()->size();  // of all the window
            EXPECT_TRUE(ground || (role != QAccessible::NoRole && role != QAccessible::Client)) << who;
        }
        const auto name = pictureOf(*widget);
        EXPECT_TRUE(name.isEmpty() || picture(name)) << who << " " << name.toStdString();
    }
    return controls;
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

TEST_F(Walk, EveryControlOfTheMainWindowSaysWhatItIs) {
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
    rows.front()->field()->setEditable(true);
    window.addShield();
    EXPECT_GE(walk(window), 20 * 4 + 20 * 5 + 4 + 8);
}

TEST_F(Walk, EveryControlOfThePanelsSaysWhatItIs) {
    AlertPanel alert(yesOrNoAlertWithHeadline("Erase?"));
    EXPECT_EQ(walk(alert), 3);
    DoctorPanel doctor(nullptr);
    EXPECT_EQ(walk(doctor), 3);
    const auto progress = Progress::progress([] {});
    EXPECT_GE(walk(progress->window()), 2);
    const auto about = About::about(
        application, executor, dialogs, [] { return std::optional<std::string>("1.05"); }, product);
    about->showWindow();
    EXPECT_GE(walk(about->window()), 1);
    const auto flashing = FirmwareUpdaterProgress::progress(executor);
    EXPECT_GE(walk(flashing->window()), 1);
    const auto offer = FirmwareUpdater::updater({.executor = executor,
                                                 .http = http,
                                                 .factoryBlank = [] { return false; },
                                                 .version = [] { return std::optional<std::string>("1.05"); },
                                                 .softwareVersion = "2.1.0",
                                                 .home = {},
                                                 .server = {},
                                                 .showHeadline = {},
                                                 .appendNotes = {}});
    EXPECT_GE(walk(offer->window()), 2);
    const auto updater = std::make_shared<SUUpdater>(UpdaterEnvironment{executor, http, {}, {}, {}, {}});
    const auto update = SoftwareUpdate::softwareUpdate({updater, "2.1.0", {}});
    EXPECT_GE(walk(update->window()), 2);
}

}  // namespace
}  // namespace kzq
