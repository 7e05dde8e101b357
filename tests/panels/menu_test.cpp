#include "ui/panels/menu.h"

#include <gtest/gtest.h>

#include <QTest>

#include "fakes.h"
#include "ui/fonts.h"
#include "ui/panels/menu_item_view.h"

namespace kzq {
namespace {

constexpr auto both = Qt::ControlModifier | Qt::ShiftModifier;

class MenuTest : public testing::Test {
  protected:
    MenuTest() {
        registerFonts();
        page->setGeometry(0, 0, 768, 504);
        menu->view()->move(512, 14);
        menu->setModifierProbe([this] { return held; });
        page->show();
        page->activateWindow();
    }

    void open() {
        menu->view()->show();
        menu->view()->setFocus();
    }
    void key(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers before) {
        QKeyEvent event(type, key, before);
        QCoreApplication::sendEvent(menu->view(), &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    std::string firmwareTitle() { return menu->firmware().title().toStdString(); }
    test::Calls calls;
    test::FakeController controller{calls};
    test::FakeDialogs dialogs{calls};
    Qt::KeyboardModifiers held;
    std::unique_ptr<QWidget> page = std::make_unique<QWidget>();
    std::unique_ptr<Menu> menu =
        Menu::menu(controller, dialogs, page.get(), {"2.1.0", "https://www.kzq.example/"});
};

TEST_F(MenuTest, FirmwareIsChosenFromDiskWhileBothKeysAreHeld) {
    open();
    const struct {
        Qt::KeyboardModifiers held;
        Dialogs::Chosen chosen;
        test::Calls calls;
    } rows[] = {
        {Qt::ShiftModifier, {1, "/f.bin"}, {"updater"}},
        {both | Qt::AltModifier, {1, "/f.bin"}, {"choose bin", "/f.bin"}},
        {both, {-1002, "/f.bin"}, {"choose bin", "/f.bin"}},
        {both, {1, ""}, {"choose bin"}},
    };
    for (const auto& row : rows) {
        calls.clear();
        held = row.held;
        dialogs.chosen = row.chosen;
        QTest::mouseClick(menu->firmware().view(), Qt::LeftButton);
        EXPECT_EQ(calls, row.calls);
    }
}

TEST_F(MenuTest, TitleFollowsTheKeysUntilTheMenuIsShownOrHidden) {
    open();
    const std::string usual = "Firmware Update...";
    const std::string select = "Select Firmware...";
    // A key's event holds the state before it, as the window system reports it.
    key(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
    EXPECT_EQ(firmwareTitle(), usual);
    key(QEvent::KeyPress, Qt::Key_Control, Qt::ShiftModifier);
    EXPECT_EQ(firmwareTitle(), select);
    key(QEvent::KeyRelease, Qt::Key_Shift, both);
    EXPECT_EQ(firmwareTitle(), usual);
    key(QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier);
    EXPECT_EQ(firmwareTitle(), select);
    menu->view()->setHidden(true);
    EXPECT_EQ(firmwareTitle(), usual);
    menu->setFirmwareTitle(both);
    menu->view()->setHidden(false);
    EXPECT_EQ(firmwareTitle(), usual);
}

}  // namespace
}  // namespace kzq
