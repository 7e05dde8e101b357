#include "device/replies.h"
#include "device_fixture.h"

namespace kzq::test {
namespace {

/// A connected pedal with one loop in slot 1 and one in slot 11.
class Polling : public DeviceLinkTest {
  protected:
    Polling() {
        usb.replies[0xE9] = FakeUsb::reply('Y', 'p');
        usb.replies[0xE8] = FakeUsb::reply('Y', 0, 7);
        usb.replies[0xEA] = {1, 2, 3, 4, '1', '.', '0', '5'};
        setLoop(0xEB, 0, {1, 0, 0, 0, 1, 1});
        setLoop(0xEC, 0, {0, 0, 1, 0, 120, 255});
        usb.present = true;
        load(usb);
        start();
        delegate->events.clear();
        usb.calls.clear();
    }
    void setLoop(std::uint8_t table, std::size_t record, const std::vector<std::uint8_t>& bytes) {
        auto& reply = usb.replies[table];
        reply.resize(60);
        std::copy(bytes.begin(), bytes.end(), reply.begin() + static_cast<std::ptrdiff_t>(record * 6));
    }

    FakeUsb usb{executor};
};

TEST_F(Polling, ReadsTheWholeStatusEveryFiveSecondsAndReportsOnlyChanges) {
    executor.advance(4999ms);
    EXPECT_THAT(usb.calls, IsEmpty());
    executor.advance(1ms);
    EXPECT_THAT(usb.calls, ElementsAre("E8/2A 1 0 [8]", "E9/2A 1 0 [8]", "EA/2A 1 0 [8]", "EB/2A 1 0 [60]",
                                       "EC/2A 1 0 [60]"));
    EXPECT_THAT(delegate->events, ElementsAre("changed 2@5000"));
    const Status expected{0x04030201,
                          "1.05",
                          {{1_slot, {0, 1, 1, 1, 6, 64}}, {11_slot, {10, 65536, 120, 255, 393216, 393216}}}};
    EXPECT_EQ(delegate->last, expected);

    executor.advance(10s);
    EXPECT_EQ(usb.calls.size(), 15U);
    EXPECT_EQ(delegate->events.size(), 1U);

    setLoop(0xEB, 9, {64, 0, 0, 0, 1, 2});
    executor.advance(5s);
    EXPECT_THAT(delegate->events, ElementsAre("changed 2@5000", "changed 3@20000"));
    EXPECT_EQ(*delegate->last.loops.find(10_slot), (Loop{9, 64, 1, 2, 384, 384}));
}

TEST_F(Polling, StartsFiveSecondsAfterTheLastStartButOneAfterItsEnd) {
    const auto pollTaking = [this](Executor::Duration duration) {
        executor.background(Priority::high, [this, duration] {
            const std::lock_guard guard(looper().lock());
            executor.sleep(duration);
        });
    };
    executor.advance(4s);
    pollTaking(3s);  // holds the pedal from 4 s to 7 s: the poll of 5 s ends at 7 s
    executor.advance(5500ms);
    EXPECT_EQ(usb.calls.size(), 5U);  // one poll by 9.5 s
    executor.advance(500ms);
    EXPECT_EQ(usb.calls.size(), 10U);  // the next at 10 s, from the start of the last
    executor.advance(4s);
    pollTaking(6s);  // from 14 s to 20 s: the poll of 15 s ends at 20 s
    executor.advance(6999ms);
    EXPECT_EQ(usb.calls.size(), 15U);
    executor.advance(1ms);
    EXPECT_EQ(usb.calls.size(), 20U);  // 21 s: a second after the end
    EXPECT_EQ(executor.mainThreadWaits(), 0U);
}

TEST_F(Polling, SkipsWhileBusyButRefreshDoesNot) {
    executor.advance(5s);
    usb.calls.clear();
    usb.replies[0xE8] = FakeUsb::reply('N');
    executor.advance(5s);
    EXPECT_THAT(usb.calls, ElementsAre("E8/2A 1 0 [8]"));
    usb.calls.clear();
    looper().setOperation(KZQ7306::exporting);
    executor.advance(5s);
    EXPECT_THAT(usb.calls, IsEmpty());
    looper().refresh();
    looper().refresh();
    executor.advance(1s);
    EXPECT_EQ(usb.calls.size(), 8U);  // no busy query, and no further poll scheduled
    EXPECT_THAT(delegate->events, ElementsAre("changed 2@5000", "changed 2@15000", "changed 2@15000"));
    looper().setOperation(KZQ7306::idle);
    usb.replies[0xE8] = FakeUsb::reply('Y');
    setLoop(0xEB, 5, {9, 0, 0, 0, 1, 1});
    looper().refresh();
    executor.advance(20s);  // a poll does not repeat what a refresh has reported
    EXPECT_EQ(delegate->events.size(), 4U);
}

TEST_F(Polling, ARequestWaitsForTheLock) {
    executor.background(Priority::high, [this] {
        const std::lock_guard guard(looper().lock());
        executor.sleep(1s);
        usb.note("free");
    });
    executor.background(Priority::high, [] { looper().control(0xE8, pedalRequest, 1, 0, replyLength); });
    executor.advance(2s);
    EXPECT_THAT(usb.calls, ElementsAre("free", "E8/2A 1 0 [8]"));
}

TEST_F(Polling, BusyFollowsOperationStageAndPedal) {
    looper().setAutoincrement(6);
    bool stale = false;
    EXPECT_FALSE(looper().busy(&stale));
    EXPECT_TRUE(stale);
    looper().setAutoincrement(7);
    EXPECT_FALSE(looper().busy(&stale));
    EXPECT_FALSE(stale);
    EXPECT_EQ(looper().lastTrouble(), std::nullopt);
    const auto reply = std::exchange(usb.replies, {});
    EXPECT_FALSE(looper().busy());
    EXPECT_EQ(looper().lastTrouble(), Trouble{Trouble::Kind::noAnswer});
    usb.replies = reply;
    usb.replies[0xE8] = FakeUsb::reply('N', 0, 9);
    EXPECT_TRUE(looper().busy(&stale));
    EXPECT_EQ(looper().lastTrouble(), Trouble{Trouble::Kind::refused});
    EXPECT_TRUE(stale);

    looper().setStage('b');
    EXPECT_FALSE(looper().busy());
    looper().setOperation(KZQ7306::flashing);
    EXPECT_TRUE(looper().busy());
}

TEST_F(Polling, BusyAnswersAtOnceWhenABatchHasJustTakenThePedal) {
    executor.background(Priority::high, [this] {
        const std::lock_guard guard(looper().lock());
        executor.sleep(1s);
        looper().setOperation(KZQ7306::importingOrErasing);
        executor.sleep(1min);
    });
    executor.settle();
    EXPECT_TRUE(looper().busy());  // asked on the main thread before the batch said what it is
    EXPECT_EQ(executor.elapsed(), 1s);
}

TEST_F(Polling, QueriesReadPartsOfTheStatus) {
    const auto brief = looper().status(false);
    EXPECT_EQ(brief, (Status{0x04030201, "1.05", {}}));
    EXPECT_EQ(usb.calls.size(), 2U);
    std::optional<Loops> loops;
    EXPECT_TRUE(looper().loops([&](std::optional<Loops> value) {
        loops = std::move(value);
        executor.sleep(1s);
    }));
    executor.settle();
    EXPECT_FALSE(looper().lock().lockUnless([] { return true; }));  // the block has the pedal for itself
    executor.advance(1s);
    ASSERT_TRUE(loops);
    EXPECT_EQ(loops->size(), 2U);
    std::uint32_t remaining = 0;
    EXPECT_FALSE(looper().remaining({}) || looper().loops({}));
    EXPECT_TRUE(looper().remaining([&](std::uint32_t value) { remaining = value; }));
    executor.settle();
    EXPECT_EQ(remaining, 0x04030201U);

    usb.replies[0xEA][5] = 0x80;
    EXPECT_EQ(looper().status(false), std::nullopt);
    usb.replies[0xEA][5] = '.';
    usb.replies.erase(0xEC);  // a table that fails reads as empty slots
    EXPECT_EQ(looper().loops()->size(), 1U);
}

TEST_F(Polling, AStatusIsCompleteWhenItsFourRepliesBroughtWhatIsUsedOfThem) {
    const std::vector<std::pair<std::uint8_t, std::size_t>> needs = {
        {0xE9, 6}, {0xEA, 8}, {0xEB, 60}, {0xEC, 60}};
    for (const auto& [code, length] : needs) {
        const auto full = usb.replies[code];
        usb.replies[code].resize(length);
        EXPECT_TRUE(looper().loops()->complete);
        usb.replies[code].resize(length - 1);
        EXPECT_FALSE(looper().loops()->complete);
        usb.replies[code] = full;
    }
}

TEST_F(Polling, AnIncompleteStatusIsNoNewsAndTheNextWholeOneIs) {
    executor.advance(5s);
    const auto table = usb.replies[0xEB];
    usb.replies.erase(0xEB);
    executor.advance(5s);
    looper().refresh();
    executor.settle();
    EXPECT_THAT(delegate->events, ElementsAre("changed 2@5000"));
    usb.replies[0xEB] = table;
    executor.advance(5s);
    EXPECT_THAT(delegate->events, ElementsAre("changed 2@5000", "changed 2@15000"));

    // The same when the table is lost to a query, as to the one at an arrival.
    usb.replies.erase(0xEB);
    EXPECT_FALSE(looper().loops()->complete);
    usb.replies[0xEB] = table;
    executor.advance(10s);
    EXPECT_THAT(delegate->events, ElementsAre("changed 2@5000", "changed 2@15000", "changed 2@20000"));

    // And when everything comes, but the version is none.
    usb.replies[0xEA][5] = 0x80;
    EXPECT_EQ(looper().loops(), std::nullopt);
    usb.replies[0xEA][5] = '.';
    executor.advance(5s);
    EXPECT_EQ(delegate->events.back(), "changed 2@30000");
}

TEST_F(Polling, APieceThatComesAfterACancelIsNotTold) {
    usb.replies[0xE1] = FakeUsb::reply('Y');
    usb.bulk = [](std::size_t, std::size_t&) {
        looper().cancelTransfer();
        return usbSuccess;
    };
    std::vector<std::uint32_t> totals;
    bool ended = false;
    EXPECT_TRUE(looper().importLoops(
        {1}, [&](std::uint32_t total, std::uint8_t) { totals.push_back(total); },
        [](const std::optional<std::vector<std::uint8_t>>&, std::uint8_t) {},
        [&](std::uint8_t) { ended = true; }));
    executor.settle();
    EXPECT_TRUE(ended);
    EXPECT_THAT(totals, IsEmpty());
}

TEST_F(Polling, ALoopWhosePaddedSizeWrapsIsTooLarge) {
    setLoop(0xEB, 0, {0xAA, 0xAA, 0xAA, 0x2A, 1, 1});
    usb.replies[0xE1] = FakeUsb::reply('Y');
    EXPECT_EQ(looper().importLoop(1, [](std::uint32_t, std::uint8_t) {}), std::nullopt);
    EXPECT_EQ(looper().lastTrouble().value().kind, Trouble::Kind::tooLarge);
}

TEST(LoopRecord, NeedsThreeFieldsAndCountsModulo32Bits) {
    const auto loop = [](std::vector<std::uint8_t> reply) -> std::optional<Loop> {
        reply.insert(reply.begin(), std::size_t{3} * 6, 0);
        reply.resize(60);
        Loops loops;
        addLoops(loops, reply, 0);
        return loops.empty() ? std::nullopt : std::optional(*loops.find(4_slot));
    };
    EXPECT_EQ(loop({0, 0, 0, 0, 1, 1}), std::nullopt);
    EXPECT_EQ(loop({1, 0, 0, 0, 0, 1}), std::nullopt);
    EXPECT_EQ(loop({1, 0, 0, 0, 1, 0}), std::nullopt);
    EXPECT_EQ(loop({11, 0, 0, 0, 1, 1}), (Loop{3, 11, 1, 1, 66, 128}));
    EXPECT_EQ(loop({0xAA, 0xAA, 0xAA, 0x2A, 1, 1})->bytes, 4294967292U);  // 715,827,882 frames
    EXPECT_EQ(loop({0xAA, 0xAA, 0xAA, 0x2A, 1, 1})->alignedBytes, 0U);
    EXPECT_EQ(loop({0xAB, 0xAA, 0xAA, 0x2A, 1, 1})->bytes, 2U);
}

}  // namespace
}  // namespace kzq::test
