#include <gtest/gtest.h>

#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <cmath>

#include "app/main_window.h"
#include "app/menu_bar.h"
#include "app/window_size.h"
#include "gallery/bystanders.h"
#include "slots/slot.h"
#include "ui/alert_panel.h"
#include "ui/fonts.h"
#include "ui/key_button.h"
#include "ui/panels/bring_back.h"
#include "ui/panels/bring_back_targets.h"
#include "ui/scale.h"
#include "ui/shield.h"
#include "ui/status/status_line.h"
#include "ui/status/status_link.h"
#include "updates/windows/update_panel.h"

namespace kzq {
namespace {

QRect inWindow(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

QAction* action(const QWidget& bar, const QString& title) {
    for (auto* const one : bar.findChildren<QAction*>()) {
        if (one->text() == title) {
            return one;
        }
    }
    return nullptr;
}

class Sizes : public testing::Test {
  protected:
    Sizes() {
        for (std::uint8_t number = 1; number <= 20; ++number) {
            auto* const place = window.findChild<QWidget*>(QString("import slot %1").arg(number));
            rows.push_back(Slot::slotNumber(number, Slot::importContext, application, place));
            rows.back()->setDelegate(&delegate);
            rows.back()->setOccupied(true);
            rows.back()->refresh();
        }
        MenuBarActions actions;
        actions.size = &size;
        fillMenuBar(*window.menuBar(), actions);
        window.showMeter(true);
        window.show();
        rows[5]->field()->startRenaming();
    }
    ~Sizes() override { Scale::ofProgram().setSize(1); }

    std::vector<QWidget*> shown() const {
        std::vector<QWidget*> all;
        for (auto* const widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->window() == &window) {
                all.push_back(widget);
            }
        }
        return all;
    }
    std::vector<std::pair<QRect, QFont>> looks() const {
        std::vector<std::pair<QRect, QFont>> all;
        for (const auto* const widget : shown()) {
            all.emplace_back(inWindow(*widget), widget->font());
        }
        return all;
    }

    gallery::StillApplication application;
    gallery::StillRows delegate;
    MainWindow window;
    WindowSize& size = window.sizeOnScreen();
    std::vector<std::unique_ptr<Slot>> rows;
};

TEST_F(Sizes, AllIsInItsPlaceAtEverySizeAndComesBackExactly) {
    const auto usual = looks();
    const auto widgets = shown();
    ASSERT_GT(widgets.size(), 120U);
    for (const int percent : {75, 92, 113, 122, 150, 244, 300, 100}) {
        size.set(percent);
        EXPECT_FALSE(window.menuBar()->findChild<QWidget*>("qt_menubar_ext_button")->isVisible()) << percent;
        EXPECT_EQ(window.size(), QSize(qRound(7.68 * percent), qRound(5.36 * percent)));
        for (std::size_t i = 0; i < widgets.size(); ++i) {
            const auto& widget = *widgets[i];
            const auto who = testing::Message() << widget.metaObject()->className() << " "
                                                << widget.objectName().toStdString() << " at " << percent;
            EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << who;
            const auto now = inWindow(widget);
            const auto& before = usual[i].first;
            const bool words = widget.inherits("QLabel") || widget.inherits("kzq::StatusSentence") ||
                               widget.inherits("kzq::StatusLine");
            EXPECT_LE(std::abs(now.top() - before.top() * percent / 100.0), words ? 2 : 1) << who;
            EXPECT_TRUE(words || std::abs(now.width() - before.width() * percent / 100.0) <= 3) << who;
        }
    }
    EXPECT_EQ(looks(), usual);
}

TEST_F(Sizes, WhatComesOrMovesLaterFollows) {
    size.set(150);
    QWidget late(window.contentView());
    late.setGeometry(11, 20, 31, 40);
    late.setFont(textFont(13));
    late.show();
    EXPECT_EQ(late.geometry(), QRect(17, 30, 46, 60)) << "from 16.5 to 63, both edges rounded";
    EXPECT_EQ(late.font().pixelSize(), 20);
    place(late, {20, 20, 60, 40});
    EXPECT_EQ(late.geometry(), QRect(30, 30, 90, 60));
    rows[0]->setExporting(QUrl("file:///a.wav"));  // the name makes room
    EXPECT_EQ(rows[0]->field()->geometry(), QRect(137, 9, 301, 24));
    EXPECT_EQ(inWindow(*rows[5]->field()->currentEditor()), inWindow(*rows[5]->field()));
    size.set(75);
    EXPECT_EQ(late.geometry(), QRect(15, 15, 45, 30));
    AlertPanel small({"What is", "why", {{"OK"}}, false}, nullptr);
    small.show();
    EXPECT_EQ(small.width(), 448 * 3 / 4);
}

TEST_F(Sizes, TheTargetsOfACopyAnswerWhereTheyAreSeen) {
    size.set(150);
    BringBack panel(&window);
    panel.setLoops(std::set{3U});
    panel.setCopies({{.slot = 5, .fate = "erased today 14:02", .seconds = 42}}, "1 MB");
    panel.show();
    EXPECT_EQ(panel.size(), QSize(960, 594));
    const auto& row = *panel.rows().front();
    QTest::mouseClick(&row.leader(), Qt::LeftButton);
    EXPECT_EQ(panel.targets().geometry().right(), row.mapTo(&panel, row.rect().bottomRight()).x());
    QTest::mouseClick(&panel.targets(), Qt::LeftButton, {}, QPoint(124, 88) * 1.5);
    EXPECT_EQ(row.target().slot, 14U);
}

TEST_F(Sizes, StopLiesOverTheLinkOfTheStatusLineWhateverTheWindowDoes) {
    window.addShield();
    window.offerStop([] {});
    const auto* const stop = window.shield()->findChild<StatusLink*>();
    const auto corner = [this] { return inWindow(window.statusLine().link()).topRight(); };
    for (const QSize shape : {QSize(1152, 804), QSize(768, 670), QSize(576, 402)}) {
        window.resize(shape);
        EXPECT_EQ(inWindow(*stop).topRight(), corner()) << shape.width();
        EXPECT_EQ(stop->height(), window.statusLine().link().height());
    }
}

TEST_F(Sizes, StartsAsLargeAsTheScreenAllowsButNotLarger) {
    using Case = std::tuple<QSize, double, int>;
    for (const auto& [room, ratio, percent] :
         {Case({1920, 1080}, 1, 100), Case({1024, 600}, 1, 100), Case({960, 540}, 2, 92),
          Case({700, 900}, 1, 89), Case({300, 300}, 1, 75), Case({682, 400}, 1.5, 66),
          Case({300, 300}, 1.5, 50)}) {
        size.begin(room, ratio);
        EXPECT_EQ(window.width(), qRound(7.68 * percent)) << room.width();
    }
    size.set(75);
    window.resize(300, 200);
    size.settle();
    EXPECT_EQ(window.size(), QSize(384, 268)) << "not even by dragging its edge";
    QEvent moved(QEvent::ScreenChangeInternal);
    QApplication::sendEvent(&window, &moved);
    EXPECT_EQ(window.size(), QSize(576, 402)) << "the screen here has more room, and no scale";
}

TEST_F(Sizes, ADraggedEdgeScalesThePictureAndTheWindowTakesItsShape) {
    window.resize(768, 670);
    EXPECT_EQ(scaleOf(*window.contentView()), 1) << "no room to the sides yet";
    EXPECT_EQ(window.contentView()->pos(), QPoint(0, 32 + 67)) << "in the middle";
    size.settle();
    EXPECT_EQ(window.size(), QSize(960, 670));
    EXPECT_EQ(inWindow(*window.contentView()), QRect(0, 40, 960, 630));
    window.resize(768, 650);
    size.settle();
    EXPECT_EQ(window.size(), QSize(768, 536)) << "the width changed more";
    size.set(193);
    window.resize(1900, 1050);  // as a window manager shows it on the whole screen, and not any more
    window.resize(1482, 1034);
    size.settle();
    EXPECT_EQ(window.size(), QSize(1482, 1034));
}

TEST_F(Sizes, APanelOpensInTheMiddleAlsoAtAnotherSizeThanItHadThere) {
    UpdatePanel panel;
    place(panel, {0, 0, 300, 200});
    panel.centre();
    size.set(200);
    panel.present();
    EXPECT_EQ(panel.pos(), panel.screen()->availableGeometry().center() - QPoint(300, 200));
}

TEST_F(Sizes, TheMenuOffersThemAndMarksTheOneThatIs) {
    action(*window.menuBar(), "200 %")->trigger();
    EXPECT_EQ(window.height(), 1072);
    action(*window.menuBar(), "200 %")->trigger();
    EXPECT_TRUE(action(*window.menuBar(), "200 %")->isChecked()) << "chosen again, it stays";
    size.set(133);
    EXPECT_FALSE(action(*window.menuBar(), "200 %")->isChecked());
    QTest::mouseClick(rows[8]->field(), Qt::LeftButton);
    EXPECT_NE(rows[8]->field()->currentEditor(), nullptr);
}

}  // namespace
}  // namespace kzq
