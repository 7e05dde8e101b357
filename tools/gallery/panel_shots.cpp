#include "panel_shots.h"

#include "bystanders.h"
#include "stage.h"
#include "ui/alert.h"
#include "ui/alert_panel.h"
#include "ui/color_view.h"
#include "ui/palette.h"
#include "ui/panels/about.h"
#include "ui/panels/about_window.h"
#include "ui/panels/menu.h"
#include "ui/panels/menu_item.h"
#include "ui/panels/menu_view.h"
#include "ui/panels/progress.h"

namespace kzq::gallery {

namespace {

const Product product{"2.1.0", "https://www.kzq.example/"};

Shot progressPanel(double fraction) {
    const auto progress = Progress::progress([] {});
    progress->setTitle("7306 Import");
    progress->setSubtitle("Importing 6 loops from the 7306...");
    progress->setTotalBytes(212'000'000);
    progress->setPercent(fraction);
    progress->setTimeLeft(fraction > 0 ? "about 10 s left" : "");
    return shoot(QString("Progress, %1").arg(fraction), progress->window());
}

Shot menuPanel(bool hovered) {
    StillApplication application;
    StillDialogs dialogs;
    ColorView ground;
    ground.setColor(KZQBrown());
    ground.resize(240, 224);
    const auto menu = Menu::menu(application, dialogs, &ground, product);
    menu->view()->move(8, 8);
    menu->view()->show();
    menu->firmware().setHovered(hovered);
    return shoot(hovered ? "Menu, hovered" : "Menu", ground);
}

Shot aboutPanel(const std::optional<std::string>& firmware) {
    StillApplication application;
    StillDialogs dialogs;
    StillExecutor executor;
    const auto about = About::about(
        application, executor, dialogs, [=] { return firmware; }, product);
    return shoot("About", about->window());
}

Shot alertPanel(const QString& caption, const Alert& alert) {
    AlertPanel panel(alert);
    return shoot(caption, panel);
}

}  // namespace

Shots panels() {
    return {progressPanel(0),
            progressPanel(0.41),
            progressPanel(1),
            menuPanel(false),
            menuPanel(true),
            aboutPanel("1.05"),
            aboutPanel(std::nullopt),
            alertPanel("Question",
                       yesOrNoAlertWithHeadline(
                           "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be "
                           "restored. Would you like to continue?")),
            alertPanel("Notice", alertWithHeadline("You're up to date!",
                                                   "Version 1.05 is the newest 7306 firmware available.")),
            alertPanel("Notice, one line", alertWithHeadline("No loops were found."))};
}

}  // namespace kzq::gallery
