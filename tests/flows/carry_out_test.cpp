#include <QTest>
#include <QUrl>
#include <fstream>
#include <iterator>

#include "flow_fixture.h"
#include "mouse.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

/// Loops are fetched, and dragged, by the test.
class CarryOut : public FlowTest {
  protected:
    CarryOut() {
        dragFiles = [this](const QList<QUrl>& files) {
            for (const auto& file : files) {
                const fs::path path = file.toLocalFile().toStdString();
                std::ifstream content(path);
                dragged.push_back(path.filename().string() + ": " +
                                  std::string(std::istreambuf_iterator<char>(content), {}));
            }
            return taken;
        };
    }

    void launchConnected() {
        FlowTest::launchConnected();
        delegate->parts().carryOut.setSource(
            {.fetch =
                 [this](auto slots, auto copy, auto /*moved*/) {
                     asked = slots;
                     answer = copy;
                 },
             .giveUp = [this] { ++givenUp; },
             .counts = [this](auto slot, const auto& /*copy*/) { return slot != changed; }});
    }
    void dragRow(std::uint8_t number) {
        Mouse mouse(*importRow(number).background());
        mouse.press();
        mouse.dragBy({12, 0});
    }
    void releaseButton() { Mouse(*importRow(1).background()).release(); }
    void arrive(SlotNumber slot) {
        const auto copy = base / "copies" / std::to_string(slot.number());
        std::ofstream(copy) << "audio " << int{slot.number()};
        answer(slot, copy);
        executor.settle();
    }
    long folders() const {
        return std::ranges::count_if(fs::directory_iterator(base / "copies"),
                                     [](const auto& entry) { return entry.is_directory(); });
    }
    bool stripShows() const {
        return std::ranges::any_of(window->findChildren<QWidget*>(), [](const QWidget* child) {
            return child->windowType() == Qt::ToolTip && child->isVisible();
        });
    }

    std::vector<SlotNumber> asked;
    kzq::CarryOut::Source::Copy answer;
    int givenUp = 0;
    std::optional<SlotNumber> changed;
    bool taken = true;
    std::vector<std::string> dragged;
};

TEST_F(CarryOut, AllPickedUpRowsGoUnderTheNamesOfAnImport) {
    launchConnected();
    select({1, 3, 20});
    for (const std::uint8_t number : {std::uint8_t{1}, std::uint8_t{20}}) {
        importRow(number).setCustomImportName("riff/take");
    }
    for (const bool accepted : {true, false}) {
        taken = accepted;
        dragRow(3);
        EXPECT_TRUE(stripShows());
        EXPECT_THAT(asked, ElementsAre(1_slot, 3_slot, 20_slot));
        arrive(1_slot);
        arrive(3_slot);
        EXPECT_THAT(dragged, IsEmpty());
        arrive(20_slot);
        EXPECT_FALSE(stripShows());
        EXPECT_THAT(std::exchange(dragged, {}), ElementsAre("riff-take.wav: audio 1", "Loop 3.wav: audio 3",
                                                            "riff-take-2.wav: audio 20"));
        EXPECT_EQ(folders(), 1) << "what was taken may be read later; the rest goes";
    }
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(1_slot, 3_slot, 20_slot));
    select({3});
    dragRow(3);
    EXPECT_THAT(asked, ElementsAre(3_slot)) << "a row that is not picked up goes alone";
    taken = true;
    arrive(3_slot);
    EXPECT_EQ(folders(), 2);
    delegate->parts().carryOut.setRoom(30'000);
    dragRow(3);
    arrive(3_slot);
    EXPECT_EQ(folders(), 2) << "the oldest has made room";
}

TEST_F(CarryOut, NothingIsDroppedOnceTheButtonIsUpEscapeIsPressedOrADialogOpens) {
    launchConnected();
    const std::vector<std::function<void()>> ends = {
        [this] { releaseButton(); }, [this] { QTest::keyClick(window.get(), Qt::Key_Escape); },
        [this] {
            QEvent dialogOpens(QEvent::WindowBlocked);
            QApplication::sendEvent(window.get(), &dialogOpens);
            executor.settle();
        }};
    for (std::size_t i = 0; i < ends.size(); ++i) {
        dragRow(1);
        ends[i]();
        EXPECT_EQ(givenUp, static_cast<int>(i) + 1);
        EXPECT_FALSE(stripShows());
        arrive(1_slot);
        EXPECT_THAT(dragged, IsEmpty());
    }
    dragRow(1);
    answer(1_slot, base / "copies" / "1");
    releaseButton();  // while the file gets its name
    executor.settle();
    EXPECT_THAT(dragged, IsEmpty());
    EXPECT_FALSE(importRow(1).selected());
}

TEST_F(CarryOut, ADragThatWaitsEndsWhenThePedalLeaves) {
    launchConnected();
    select({1, 3});
    dragRow(1);
    arrive(1_slot);
    pedal.unplug();
    executor.settle();
    answer(3_slot, Trouble{Trouble::Kind::unplugged});
    EXPECT_FALSE(stripShows());
    EXPECT_EQ(line(), "2 loops were not dragged out: the pedal was unplugged");
    plugIn();
    select({1, 3});
    dragRow(1);
    arrive(1_slot);
    changed = 1_slot;
    arrive(3_slot);
    EXPECT_EQ(line(), "2 loops were not dragged out: a loop changed while it was being read");
    dragRow(20);
    answer(20_slot, Trouble{Trouble::Kind::cancelled});
    EXPECT_FALSE(stripShows());
    arrive(20_slot);
    EXPECT_THAT(dragged, IsEmpty());
    window->addShield();
    asked.clear();
    dragRow(20);
    EXPECT_THAT(asked, IsEmpty());
}

}  // namespace

}  // namespace kzq::test
