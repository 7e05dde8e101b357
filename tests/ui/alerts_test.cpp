#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <functional>
#include <memory>

#include "ui/alert_button.h"
#include "ui/alert_panel.h"
#include "ui/check_box.h"
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

AlertButton* button(AlertPanel& panel, int answer) {
    return panel.findChild<AlertButton*>(QString("answer %1").arg(answer));
}

std::function<void(AlertPanel&)> click(int answer) {
    return [answer](AlertPanel& panel) { QTest::mouseClick(button(panel, answer), Qt::LeftButton); };
}

void escape(AlertPanel& panel) {
    QTest::keyClick(&panel, Qt::Key_Escape);
}

void closeWindow(AlertPanel& panel) {
    panel.close();
}

TEST(Alerts, AnswerByTheOrderOfTheirButtons) {
    const auto notice = alertWithHeadline("Done");
    EXPECT_EQ(answerOf(notice, click(1000)), 1000);
    EXPECT_EQ(answerOf(notice, escape), 1001);
    EXPECT_EQ(answerOf(notice, closeWindow), 1001);
    const auto question = yesOrNoAlertWithHeadline("Erase?", "It is gone then.");
    EXPECT_EQ(answerOf(question, click(1000)), 1000);
    EXPECT_EQ(answerOf(question, click(1001)), 1001);
    EXPECT_EQ(answerOf(question, escape), 1002);
    EXPECT_EQ(answerOf(question, closeWindow), 1002);
    EXPECT_EQ(answerOf(question,
                       [](AlertPanel& panel) {
                           QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
                           QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
                       }),
              1000);
}

TEST(Alerts, AnOptionBeginsAsItWasAndIsHandedBackWithAnyAnswer) {
    auto question = yesOrNoAlertWithHeadline("Erase?", "It is gone then.");
    question.option = "Keep copies";
    for (const bool before : {false, true}) {
        bool ticked = before;
        QMetaObject::invokeMethod(
            qApp,
            [before] {
                auto& panel = dynamic_cast<AlertPanel&>(*QApplication::activeModalWidget());
                auto* const box = panel.findChild<CheckBox*>();
                EXPECT_EQ(box->isChecked(), before);
                EXPECT_TRUE(panel.rect().contains(box->geometry()));
                const auto usual = box->grab().toImage();
                QTest::mouseClick(box, Qt::LeftButton, {}, {6, box->height() / 2});
                EXPECT_NE(box->grab().toImage(), usual);
                escape(panel);
            },
            Qt::QueuedConnection);
        test::VirtualExecutor executor;
        KeyGuard keys(executor);
        QtDialogs(keys, [] { return nullptr; }).run(question, ticked);
        EXPECT_NE(ticked, before);
    }
}

TEST(Alerts, SurviveTheEndOfTheirParent) {
    auto parent = std::make_unique<QWidget>();
    EXPECT_EQ(
        answerOf(
            yesOrNoAlertWithHeadline("Erase?"), [&](AlertPanel& /*panel*/) { parent.reset(); }, parent.get()),
        1002);
}

}  // namespace
}  // namespace kzq
