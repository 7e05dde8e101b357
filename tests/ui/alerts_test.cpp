#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

#include "ui/alert_button.h"
#include "ui/alert_panel.h"
#include "ui/focus_ring.h"
#include "ui/qt_dialogs.h"
#include "virtual_executor.h"

namespace kzq {
namespace {

/// Runs the alert, and `act` on its window once that is up.
int answerOf(const Alert& alert, const std::function<void(AlertPanel&)>& act, QWidget* parent = nullptr) {
    QMetaObject::invokeMethod(
        qApp, [&] { act(dynamic_cast<AlertPanel&>(*QApplication::activeModalWidget())); },
        Qt::QueuedConnection);
    test::VirtualExecutor executor;
    KeyGuard keys(executor);
    return QtDialogs(keys, [parent] { return parent; }).run(alert);
}

std::function<void(AlertPanel&)> click(const QString& title) {
    return [title](AlertPanel& panel) {
        QTest::mouseClick(panel.findChild<AlertButton*>(title), Qt::LeftButton);
    };
}

void escape(AlertPanel& panel) {
    QTest::keyClick(&panel, Qt::Key_Escape);
}

void closeWindow(AlertPanel& panel) {
    panel.close();
}

TEST(Alerts, AnswerByTheOrderOfTheirButtons) {
    const auto notice = alertWithHeadline("Done");
    EXPECT_EQ(answerOf(notice, click("OK")), 1000);
    EXPECT_EQ(answerOf(notice, escape), 1001);
    EXPECT_EQ(answerOf(notice, closeWindow), 1001);
    const auto question = yesOrNoAlertWithHeadline("Erase?", "It is gone then.");
    EXPECT_EQ(answerOf(question, click("Yes")), 1000);
    EXPECT_EQ(answerOf(question, click("No")), 1001);
    EXPECT_EQ(answerOf(question, escape), 1002);
    EXPECT_EQ(answerOf(question, closeWindow), 1002);
    EXPECT_EQ(answerOf(question,
                       [](AlertPanel& panel) {
                           QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
                           QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
                       }),
              1000);
}

/// Types `path` into the chooser that is about to open and accepts it.
void choose(const std::filesystem::path& path) {
    QMetaObject::invokeMethod(
        qApp,
        [name = QString::fromStdString(path.string())] {
            auto& chooser = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
            chooser.findChild<QLineEdit*>("fileNameEdit")->setText(name);
            chooser.accept();
        },
        Qt::QueuedConnection);
}

TEST(Choosers, GiveTheAllowedFileOrTheFolderItself) {
    const QTemporaryDir folder;
    const std::filesystem::path here = folder.path().toStdString();
    for (const auto* const name : {"a b.WAV", "b.txt"}) {
        std::ofstream(here / name) << 'x';
    }
    test::VirtualExecutor executor;
    KeyGuard keys(executor);
    QtDialogs dialogs(keys, [] { return nullptr; });
    choose(here / "a b.WAV");
    const auto file = dialogs.chooseFile({"mp3", "wav"});
    EXPECT_EQ(file.answer, panelOk);
    EXPECT_EQ(file.path, here / "a b.WAV");
    choose(here / "b.txt");
    EXPECT_EQ(dialogs.chooseFile({"mp3", "wav"}).answer, panelCancelled);
    choose(here);
    EXPECT_EQ(dialogs.chooseFolder("Import").path, here);
}

TEST(Alerts, SurviveTheEndOfTheirParent) {
    auto parent = std::make_unique<QWidget>();
    EXPECT_EQ(
        answerOf(
            yesOrNoAlertWithHeadline("Erase?"), [&](AlertPanel& /*panel*/) { parent.reset(); }, parent.get()),
        1002);
}

TEST(AlertPanel, HidesItsLastButtonAndStartsWhereNothingIsLost) {
    EXPECT_EQ(AlertPanel(alertWithHeadline("a")).focusWidget()->objectName(), "OK");
    EXPECT_EQ(alertWithHeadline("a", "b").finePrint, "b");
    AlertPanel panel(yesOrNoAlertWithHeadline("Is 1 < 2 & 3?"));
    panel.show();
    EXPECT_TRUE(panel.windowFlags() & Qt::WindowStaysOnTopHint) << "as the windows it must not lie under";
    auto* cancel = panel.findChild<AlertButton*>("Cancel");
    ASSERT_NE(cancel, nullptr);
    EXPECT_FALSE(cancel->isVisible());
    EXPECT_EQ(cancel->focusPolicy(), Qt::NoFocus);
    auto* no = panel.findChild<AlertButton*>("No");
    EXPECT_LT(panel.findChild<AlertButton*>("Yes")->x(), no->x());
    EXPECT_EQ(panel.focusWidget(), no);
    EXPECT_EQ(panel.findChild<FocusRing*>()->control(), no);
    const auto labels = panel.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1) << "no room is kept for a fine print that is not there";
    EXPECT_EQ(labels.first()->accessibleName(), "Is 1 < 2 & 3?");
}

}  // namespace
}  // namespace kzq
