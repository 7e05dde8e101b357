#include "flow_fixture.h"

// What the desktop shows beside the window, and what of it the panel shows as well.

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

struct FakeShell : DesktopShell {
    bool inFront() const override { return front; }
    void showProgress(std::optional<double> fraction) override { progress.push_back(fraction); }
    void notify(const QString& sentence) override { notes.push_back(sentence.toStdString()); }
    void setClicked(std::function<void()> act) override { clicked = std::move(act); }

    bool front = false;
    std::vector<std::optional<double>> progress;
    std::vector<std::string> notes;
    std::function<void()> clicked;
};

TEST_F(FlowTest, WhatEndsLateBehindAnotherProgramIsNotifiedInTheWordsOfTheStatusLine) {
    FakeShell desktop;
    shell = &desktop;
    launchConnected();
    const auto import = [&](Executor::Duration pace) {
        port.pace = pace;
        select({1, 3});
        window->importButton()->click();
        EXPECT_TRUE(becomesIdle());
        return std::exchange(desktop.notes, {});
    };
    EXPECT_THAT(import(100ms), IsEmpty()) << "18 reads";
    EXPECT_EQ(desktop.progress.front(), 0.0);
    EXPECT_EQ(desktop.progress.back(), std::nullopt);
    EXPECT_GT(desktop.progress.size(), 10U);
    pass(10s);
    const auto notes = import(600ms);
    EXPECT_THAT(notes, ElementsAre(line()));
    desktop.front = true;
    EXPECT_THAT(import(600ms), IsEmpty());
    window->setWindowState(Qt::WindowMinimized);
    desktop.clicked();
    EXPECT_FALSE(window->isMinimized());
}

TEST_F(FlowTest, CopiesCountAsPartOfTheExportThatTheyAreKeptFor) {
    FakeShell desktop;
    shell = &desktop;
    EXPECT_TRUE(kept.turn(true));
    launchConnected();
    stage(1, 1000);
    port.pace = 1s;       // 6 s
    port.writePace = 1s;  // 6 s
    window->exportButton()->click();
    EXPECT_TRUE(becomesIdle());
    EXPECT_THAT(desktop.notes, ElementsAre(line()));
}

TEST_F(FlowTest, ThePanelSaysHowLongATransferStillTakes) {
    launchConnected();
    for (const bool again : {false, true}) {
        port.pace = 1s;
        select({1, 3});
        window->importButton()->click();
        pass(1s);
        EXPECT_EQ(delegate->progress()->timeLeft(), "") << again;
        pass(8s);
        EXPECT_THAT(delegate->progress()->timeLeft().toStdString(), MatchesRegex("about 1[05] s left"));
        plan("silence@in:1");
        pass(8s);
        EXPECT_EQ(delegate->progress()->timeLeft(), "") << "nothing moves";
        delegate->progress()->cancel();
        EXPECT_TRUE(becomesIdle());
        pedal.clearFaults();
        pass(10s);
    }
}

}  // namespace

}  // namespace kzq::test
