#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QTest>
#include <memory>

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

TEST(ImageButtons, MassSelectionActsWheneverHovering) {
    Rig<MassSelectionButton> rig("Select_All");
    auto& [button, mouse, actions] = rig;
    bool downDuringAction = true;
    QObject::connect(&button, &MassSelectionButton::clicked, [&] { downDuringAction = rig.button.isDown(); });
    mouse.press();
    mouse.release();
    EXPECT_EQ(actions, 0) << "the pointer never came in";
    mouse.enter();
    mouse.press();
    mouse.dragOut();
    mouse.release();
    EXPECT_EQ(actions, 1) << "does not follow a drag";
    EXPECT_FALSE(downDuringAction);
    button.setEnabled(false);
    mouse.press();
    mouse.release();
    EXPECT_EQ(actions, 2) << "disabled and hovered";
    mouse.leave();
    mouse.press();
    mouse.release();
    EXPECT_EQ(actions, 2);
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

TEST(ImageButtons, MayBeDeletedByTheirAction) {
    auto lower = std::make_unique<LowerButton>();
    lower->resize(10, 10);
    QObject::connect(lower.get(), &LowerButton::clicked, [&] { lower.reset(); });
    test::Mouse mouse(*lower);
    mouse.enter();
    mouse.press();
    mouse.release();
    EXPECT_EQ(lower, nullptr);
}

/// Name of the picture in each state: "-" not, else a letter for enabled, hovering, down.
template <typename Button>
QString pictureOf(const char* identifier, const QString& state) {
    Rig<Button> rig(identifier);
    rig.button.setEnabled(state.contains('e'));
    if (state.contains('h')) {
        rig.mouse.enter();
    }
    if (state.contains('d')) {
        rig.mouse.press();
    }
    auto name = rig.button.pictureName();
    EXPECT_TRUE(name.isEmpty() || picture(name)) << name.toStdString();
    return name;
}

TEST(ImageButtons, ChooseTheirPictureByState) {
    for (const std::string base : {"Erase", "Import", "Export"}) {
        const auto identifier = base + " (lower button)";
        const auto name = [&](const char* state) {
            return pictureOf<LowerButton>(identifier.c_str(), state).remove(0, static_cast<int>(base.size()));
        };
        EXPECT_EQ(name("e"), "_button_Off");
        EXPECT_EQ(name("eh"), "_button_hover");
        EXPECT_EQ(name("ehd"), "_button_On");
        EXPECT_EQ(name("ed"), "_button_Off") << "pressed, but outside";
        EXPECT_EQ(name("hd"), "_button_Gray");
    }
    const auto cancel = [](const char* state) { return pictureOf<LowerButton>("Cancel", state); };
    EXPECT_EQ(cancel(""), "Cancel_button_Off") << "never grey";
    EXPECT_EQ(cancel("h"), "Cancel_button_hover");
    EXPECT_EQ(cancel("ed"), "Cancel_button_On") << "pressed, outside as well";
    EXPECT_EQ(pictureOf<LowerButton>("Import", "e"), "");
    EXPECT_EQ(pictureOf<XButton>("x", "ed"), "Export_X");
    EXPECT_EQ(pictureOf<XButton>("x", "hd"), "Export_X_Hover");
    EXPECT_EQ(pictureOf<XButton>("", "eh"), "");
    for (const auto* identifier : {"Select_All", "Deselect_All"}) {
        const auto name = [&](const char* state) {
            return pictureOf<MassSelectionButton>(identifier, state).remove(QString(identifier) + "_");
        };
        EXPECT_EQ(name("hd"), "Gray");
        EXPECT_EQ(name("ed"), "Press");
        EXPECT_EQ(name("eh"), "Hover");
        EXPECT_EQ(name("e"), "Base");
    }
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
    QTest::keyPress(&button, Qt::Key_Return);
    repeat(QEvent::KeyPress, Qt::Key_Return);
    QTest::keyRelease(&button, Qt::Key_Return);
    EXPECT_EQ(actions, 2);
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(actions, 2);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::Button);
}

TEST(LinkButton, TellsItsDelegateAndShowsTheHand) {
    struct Delegate : LinkButtonDelegate {
        void linkButtonHoverStateChanged(LinkButton& /*button*/, bool hovered) override {
            heard += hovered ? "in " : "out ";
        }
        std::string heard;
    } delegate;
    Rig<LinkButton> rig("link");
    auto& [button, mouse, actions] = rig;
    button.setDelegate(&delegate);
    mouse.enter();
    EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
    mouse.press();
    mouse.release();
    mouse.leave();
    EXPECT_EQ(button.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(delegate.heard, "in out ");
    EXPECT_EQ(actions, 1);
}

}  // namespace
}  // namespace kzq
