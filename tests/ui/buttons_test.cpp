#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QTest>

#include "mouse.h"
#include "ui/link_button.h"
#include "ui/lower_button.h"
#include "ui/mass_selection_button.h"
#include "ui/pictures.h"
#include "ui/window.h"
#include "ui/x_button.h"

namespace kzq {
namespace {

template <typename Button>
struct Rig {
    explicit Rig(const char* identifier) {
        button.setObjectName(identifier);
        button.resize(80, 32);
        QObject::connect(&button, &Button::clicked, [this] { ++actions; });
    }

    Button button;
    test::Mouse mouse = test::Mouse(button);
    int actions = 0;
};

template <typename Button>
void actsOnlyWhileEnabledAndHovering(Rig<Button> rig) {
    auto& [button, mouse, actions] = rig;
    mouse.enter();
    mouse.press();
    mouse.dragOut();
    EXPECT_FALSE(button.hovering());
    mouse.release();
    EXPECT_EQ(actions, 0) << "released outside";

    mouse.press();
    mouse.dragOut();
    mouse.dragIn();
    mouse.release();
    EXPECT_EQ(actions, 1) << "dragged back in";
    EXPECT_FALSE(button.isDown());

    button.setEnabled(false);
    mouse.press();
    EXPECT_TRUE(button.isDown()) << "goes down even when disabled";
    mouse.dragOut();
    EXPECT_TRUE(button.hovering()) << "a drag is not followed while disabled";
    mouse.release();
    EXPECT_EQ(actions, 1);
    EXPECT_FALSE(button.isDown());
}

TEST(ImageButtons, LowerAndXActOnlyWhileEnabledAndHovering) {
    actsOnlyWhileEnabledAndHovering(Rig<LowerButton>("Import (lower button)"));
    actsOnlyWhileEnabledAndHovering(Rig<XButton>("x"));
}

/// Qt hides events from disabled widgets in several places, so this one takes the platform's whole path.
TEST(ImageButtons, DisabledMassSelectionGetsTheMouseFromThePlatform) {
    Window window;
    Rig<MassSelectionButton> rig("Select_All");
    auto& [button, mouse, actions] = rig;
    button.setParent(&window);
    button.setGeometry(20, 20, 80, 32);
    button.setEnabled(false);
    window.resize(200, 100);
    window.show();
    QTest::mouseMove(window.windowHandle(), {5, 5});
    QTest::mouseMove(window.windowHandle(), {30, 30});
    EXPECT_TRUE(button.hovering());
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {30, 30});
    EXPECT_TRUE(button.isDown());
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {30, 30});
    EXPECT_EQ(actions, 1);
    QTest::mouseMove(window.windowHandle(), {5, 5});
    EXPECT_FALSE(button.hovering());
    button.setParent(nullptr);
}

TEST(ImageButtons, MassSelectionActsOnlyIfItIsLetGoInside) {
    Rig<MassSelectionButton> rig("Deselect_All");
    auto& [button, mouse, actions] = rig;
    mouse.enter();
    mouse.press();
    mouse.dragOut();
    EXPECT_EQ(button.pictureName(), "Deselect_All_Press");
    mouse.release();
    EXPECT_EQ(actions, 0);
    mouse.press();
    mouse.dragOut();
    mouse.dragIn();
    mouse.release();
    EXPECT_EQ(actions, 1);
}

TEST(ImageButtons, ActOnceByKeyboardAndSayWhatTheyAre) {
    Rig<LowerButton> rig("Import (lower button)");
    auto& [button, mouse, actions] = rig;
    const auto repeat = [&](QEvent::Type type, Qt::Key key) {
        QKeyEvent event(type, key, {}, " ", true);
        QApplication::sendEvent(&rig.button, &event);
    };
    QTest::keyPress(&button, Qt::Key_Space);
    EXPECT_TRUE(button.isDown());
    repeat(QEvent::KeyRelease, Qt::Key_Space);
    repeat(QEvent::KeyPress, Qt::Key_Space);
    EXPECT_EQ(actions, 0);
    QTest::keyRelease(&button, Qt::Key_Space);
    EXPECT_EQ(actions, 1);
    QTest::keyRelease(&button, Qt::Key_Space);
    EXPECT_EQ(actions, 1) << "its press went elsewhere";
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::Button);
}

}  // namespace
}  // namespace kzq
