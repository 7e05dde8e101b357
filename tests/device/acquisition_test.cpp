#include "device_fixture.h"

namespace kzq::test {
namespace {

class Acquisition : public DeviceLinkTest {
  protected:
    Acquisition() {
        usb.replies[0xE9] = FakeUsb::reply('Y', 'p');
        usb.bulk = [](std::size_t, std::size_t&) { return usbSuccess; };
    }
    void loadPresent() {
        usb.present = true;
        load(usb);
        start();
    }

    FakeUsb usb{executor};
};

TEST_F(Acquisition, AnnouncesAPedalThatIsAlreadyThere) {
    loadPresent();
    EXPECT_THAT(delegate->events, ElementsAre("connected p@0"));
    EXPECT_THAT(usb.filters,
                ElementsAre("arrived 12426:260 class -1 enumerate", "left 12426:260 class -1 enumerate"));
    EXPECT_THAT(usb.calls, ElementsAre("initialize", "open", "driver 0", "claim 0", "E9/2A 1 0 [8]"));
    EXPECT_THAT(executor.serviceLabels(), ElementsAre("com.kzq.libusb.hotplug-queue"));
    EXPECT_THAT(tags, IsEmpty());
}

TEST_F(Acquisition, FollowsArrivalAndDeparture) {
    load(usb);
    start();
    EXPECT_TRUE(looper().disconnected());
    usb.replies[0xE9] = FakeUsb::reply('Y', 'b');
    usb.arrive();
    EXPECT_THAT(delegate->events, IsEmpty());  // the callback itself only hands over
    executor.settle();
    EXPECT_TRUE(looper().factoryBlank());
    usb.calls.clear();
    usb.leave();
    executor.settle();
    EXPECT_THAT(delegate->events, ElementsAre("connected b@0", "disconnected@0"));
    EXPECT_THAT(usb.calls, ElementsAre("release 0", "close"));
    EXPECT_TRUE(looper().disconnected());
    EXPECT_EQ(looper().core(), nullptr);
}

TEST_F(Acquisition, EachFailureHasItsTagAndLeavesNothingOpen) {
    struct Case {
        std::string tag;
        std::function<void(FakeUsb&)> arrange;
        Trouble::Kind reason;
        std::vector<std::string> calls;
    };
    const std::vector<Case> cases = {
        {"core:1", [](FakeUsb& u) { u.openResult = usbAccess; }, Trouble::Kind::noPermission, {"open"}},
        {"core:3",
         [](FakeUsb& u) { u.driverActive = 1; },
         Trouble::Kind::kernelDriver,
         {"open", "driver 0", "detach 0", "close"}},
        {"core:4",
         [](FakeUsb& u) { u.claimResult = usbBusy; },
         Trouble::Kind::heldByAnother,
         {"open", "driver 0", "claim 0", "close"}},
        {"core:",
         [](FakeUsb& u) { u.throwing = true; },
         Trouble::Kind::cannotOpen,
         {"open", "driver 0", "claim 0", "close"}},
    };
    load(usb);
    start();
    for (const auto& [tag, arrange, reason, calls] : cases) {
        usb.openResult = usbSuccess;
        usb.driverActive = 0;
        usb.claimResult = usbSuccess;
        usb.throwing = false;
        arrange(usb);
        usb.calls.clear();
        tags.clear();
        usb.arrive();
        executor.settle();
        EXPECT_THAT(tags, ElementsAre(tag, "plugged:1"));
        EXPECT_EQ(usb.calls, calls) << tag;
        EXPECT_EQ(looper().lastTrouble(), Trouble{reason}) << tag;
        EXPECT_EQ(looper().core(), nullptr) << tag;
    }
    EXPECT_EQ(looper().acquisitionTrouble(), Trouble{Trouble::Kind::cannotOpen});
    usb.throwing = false;
    usb.arrive();
    executor.settle();
    EXPECT_EQ(looper().acquisitionTrouble(), std::nullopt) << "a success takes the reason away";
}

TEST_F(Acquisition, ADriverThatCannotBeDetachedDoesNotStopIt) {
    usb.driverActive = usbIo;  // anything but 0 counts as active
    usb.detachResult = usbNotSupported;
    loadPresent();
    EXPECT_THAT(delegate->events, ElementsAre("connected p@0"));
}

TEST_F(Acquisition, WithoutADeviceOpensTheFirstPedal) {
    load(usb);
    EXPECT_TRUE(looper().core(nullptr));
    EXPECT_THAT(usb.calls, ElementsAre("initialize", "open 12426:260", "driver 0", "claim 0"));
    usb.openResult = usbNoDevice;
    EXPECT_FALSE(looper().core(nullptr));
    EXPECT_THAT(tags, ElementsAre("core:2"));
    EXPECT_EQ(looper().lastTrouble(), Trouble{Trouble::Kind::noPedal});
}

TEST_F(Acquisition, RefusesToRunWhereTheMinorVersionReadsZero) {
    std::uint64_t minor = 0;
    usb.present = true;
    KZQ7306::load({executor, usb, [&minor] { return minor; }});
    start();
    EXPECT_EQ(KZQ7306::looper(), nullptr);
    EXPECT_THAT(usb.filters, IsEmpty());
    executor.advance(1min);
    EXPECT_THAT(delegate->events, IsEmpty());
    minor = 13;
    ASSERT_NE(KZQ7306::looper(), nullptr);
    EXPECT_TRUE(looper().isAtLeastHighSierra());
    EXPECT_FALSE(looper().isAtLeastMojave());
}

TEST_F(Acquisition, ComingAndGoingKeepTheirTurnWhileAnotherThreadHasThePedal) {
    loadPresent();
    executor.background(Priority::high, [this] {
        const std::lock_guard guard(looper().lock());
        executor.sleep(4s);
    });
    executor.settle();
    usb.calls.clear();
    usb.leave();
    usb.arrive();
    bool alive = false;
    executor.main([&] { alive = true; });
    executor.advance(3s);
    EXPECT_TRUE(alive);
    EXPECT_THAT(usb.calls, IsEmpty());
    EXPECT_THAT(delegate->events, ElementsAre("connected p@0"));
    executor.advance(1s);
    EXPECT_THAT(delegate->events, ElementsAre("connected p@0", "disconnected@4000", "connected p@4000"));
    EXPECT_EQ(executor.mainThreadWaits(), 0U);
}

TEST_F(Acquisition, RequestsTravelInTheirOddOrder) {
    loadPresent();
    usb.calls.clear();
    EXPECT_EQ(looper().control(0xE3, 4464, 1), KZQ7306::Reply(8));  // fails: all zero, no refusal
    EXPECT_EQ(looper().control(0xEB, 0x2A, 1, 0, 60), KZQ7306::Reply(60));
    EXPECT_EQ(looper().control(0xEF, 0x2A, 7, 9), KZQ7306::Reply(8));
    looper().abortBulkTransfer(pedalBulkOut, false);
    EXPECT_THAT(usb.calls, ElementsAre("E3/2A 4464 1 [8]", "EB/2A 1 0 [60]", "EF/2A 7 9 [8]", "reset"));
}

}  // namespace
}  // namespace kzq::test
