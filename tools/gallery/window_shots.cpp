#include "window_shots.h"

#include <QLabel>
#include <QStackedWidget>
#include <map>
#include <vector>

#include "app/main_window.h"
#include "app/menu_bar.h"
#include "app/window_size.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "rows.h"
#include "stage.h"
#include "ui/background.h"
#include "ui/panels/menu.h"
#include "ui/panels/menu_item.h"
#include "ui/panels/menu_view.h"
#include "ui/picture_button.h"
#include "ui/picture_view.h"
#include "ui/view_width.h"

namespace kzq::gallery {

namespace {

constexpr std::uint8_t loops = 20;
constexpr RowState aLoop{.caption = "", .occupied = true};
constexpr RowState heard{.caption = "", .occupied = true, .heard = true};

using States = std::map<std::uint8_t, RowState>;

const States importRows{
    {1, {.caption = "", .occupied = true, .selected = true, .name = "Dusty Rhodes vamp"}},
    {2, heard},
    {3, {.caption = "", .occupied = true, .selected = true, .heard = true}},
    {5, aLoop},
    {6, {.caption = "", .occupied = true, .selected = true, .name = "Slow waltz bass", .renaming = true}},
    {7, heard},
    {10, {.caption = "", .occupied = true, .selected = true, .name = "Kalimba in 7/8", .heard = true}},
    {11, aLoop},
    {13, heard},
    {14, {.caption = "", .occupied = true, .selected = true, .name = "Chorus pad, long tail"}},
    {15, {.caption = "", .occupied = true, .selected = true, .name = "Night bus field recording"}},
    {17, heard},
    {18, heard},
    {20, heard}};

const States exportRows{{1, aLoop},
                        {2, {.caption = "", .occupied = true, .name = "verse riff take 3", .heard = true}},
                        {3, aLoop},
                        {4, {.caption = "", .name = "tape choir Am", .heard = true}},
                        {5, {.caption = "", .name = "tape choir Am", .written = true}},
                        {7, {.caption = "", .occupied = true, .name = "intro", .written = true}},
                        {8, {.caption = "", .name = "brushes_94bpm_bar1-8"}},
                        {10, aLoop},
                        {11, aLoop},
                        {12, {.caption = "", .name = "rehearsal 2 Nov, drums and upright bass"}},
                        {13, {.caption = "", .occupied = true, .name = "chorus guitars (wide, no click)"}},
                        {14, aLoop},
                        {16, {.caption = "", .dropping = true}},
                        {17, aLoop},
                        {20, aLoop}};

/// A main window with all its rows.
class WindowScene {
  public:
    WindowScene(const States& imports, const States& exports) {
        fill(Slot::importContext, "import slot %1", imports);
        fill(Slot::exportContext, "export slot %1", exports);
        fillMenuBar(*window_.menuBar(), {});
        window_.settleTabOrder();
    }

    void connectPedal(std::uint64_t used) {
        window_.showMeter(true);
        window_.meter()->setPicture(QString::fromUtf8(meterPicture(used).data()));
        setWidth(*window_.meter(), meterWidth(used));
        window_.meterCaption()->setText(QString::fromStdString(meterCaption(used)));
        for (QWidget* const button : std::initializer_list<QWidget*>{
                 window_.eraseButton(), window_.importButton(), window_.exportButton(),
                 window_.selectAllButton(), window_.deselectAllButton()}) {
            button->setEnabled(true);
        }
    }

    void openExportTab() {
        window_.showTab(1);
        window_.warning()->show();
    }

    MainWindow& window() { return window_; }

  private:
    void fill(std::int32_t context, const char* place, const States& states) {
        for (std::uint8_t number = 1; number <= loops; ++number) {
            const auto found = states.find(number);
            const RowState state = found != states.end() ? found->second : RowState{""};
            auto* const parent = window_.findChild<QWidget*>(QString(place).arg(number));
            rows_.push_back(maker_.row(number, context, state, parent));
        }
    }

    Rows maker_;
    MainWindow window_;
    std::vector<std::unique_ptr<Slot>> rows_;
};

constexpr std::uint64_t minute = 60 * framesPerSecond;

Shot importTab() {
    WindowScene scene(importRows, {});
    scene.connectPedal(capacityFrames - 9 * minute - 42 * framesPerSecond);
    return shoot("Import", scene.window());
}

Shot exportTab() {
    WindowScene scene({}, exportRows);
    scene.connectPedal(capacityFrames - 3 * minute - 17 * framesPerSecond);
    scene.openExportTab();
    return shoot("Export", scene.window());
}

Shot nearlyFull() {
    WindowScene scene(importRows, {});
    scene.connectPedal(capacityFrames - 36 * framesPerSecond);
    scene.window().addShield();
    return shoot("Under the shield, nearly full", scene.window());
}

Shot noPedal(const QString& remedy) {
    WindowScene scene({}, {});
    scene.window().setRemedy(remedy);
    return shoot(remedy.isEmpty() ? "No pedal" : "No pedal, with a remedy", scene.window());
}

Shot menuOpen() {
    StillApplication application;
    StillDialogs dialogs;
    WindowScene scene(importRows, {});
    scene.connectPedal(capacityFrames / 2);
    const auto menu =
        Menu::menu(application, dialogs, scene.window().contentView(), {"2.1.0", "https://www.kzq.example/"});
    menu->view()->move(512, 14);
    menu->view()->show();
    menu->firmware().setHovered(true);
    scene.window().menuButton()->hide();
    return shoot("Menu open", scene.window());
}

}  // namespace

Shots windowSizes() {
    Shots shots;
    for (const int percent : {75, 92, 125}) {
        WindowScene scene(importRows, {});
        scene.connectPedal(capacityFrames - 9 * minute);
        scene.window().sizeOnScreen().set(percent);
        shots.push_back(shoot(QString("%1 %").arg(percent), scene.window()));
        scene.window().sizeOnScreen().set(100);
    }
    return shots;
}

Shots mainWindows() {
    return {importTab(), exportTab(),
            noPedal({}), noPedal("The pedal may not be opened: run \"kzq7306ctl doctor\"."),
            menuOpen(),  nearlyFull()};
}

}  // namespace kzq::gallery
