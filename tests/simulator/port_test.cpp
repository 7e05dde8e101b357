// The simulated pedal as a UsbPort.

#include <future>
#include <memory>

#include "device/simulator/simulated_port.h"
#include "platform/standard_executor.h"
#include "wire.h"

namespace kzq::simulator {
namespace {

constexpr HotplugFilter pedalFilter{pedalVendor, pedalProduct, HotplugFilter::anyClass, true};

class Port : public testing::Test {
  protected:
    ~Port() override { executor.endJobs(); }

    HotplugCallback note(const std::string& who, int wish = 0) {
        return [this, who, wish](const UsbDevicePointer& device, HotplugEvent event) {
            heard.push_back(who + (event == HotplugEvent::arrived ? " arrived" : " left") +
                            (executor.onMainThread() ? " inside" : ""));
            last = device;
            return wish;
        };
    }
    void listen() {
        executor.service("events", [this] { port.handleEvents(); });
        executor.settle();
    }
    std::unique_ptr<UsbHandle> open() {
        auto handle = port.open(pedalVendor, pedalProduct, result);
        if (handle) {
            EXPECT_EQ(handle->claimInterface(pedalInterface), usbSuccess);
        }
        return handle;
    }

    test::VirtualExecutor executor;
    SimulatedPedal pedal{executor, {.memory = {StoredLoop{noise(60)}}}};
    SimulatedPort port{executor, pedal};
    UsbResult result = usbSuccess;
    std::vector<std::string> heard;
    UsbDevicePointer last;
};

TEST_F(Port, AnnouncesAPedalInsideTheRegistrationAndThenItsChanges) {
    pedal.plugIn();
    port.registerHotplug(HotplugEvent::arrived, {0x1234, pedalProduct, HotplugFilter::anyClass, true},
                         note("other"));
    port.registerHotplug(HotplugEvent::arrived, {pedalVendor, pedalProduct, -1, false}, note("later"));
    port.registerHotplug(HotplugEvent::arrived, {pedalVendor, pedalProduct, -1, false}, note("once", 1));
    EXPECT_THAT(heard, IsEmpty());
    port.registerHotplug(HotplugEvent::left, pedalFilter, note("leaving"));
    port.registerHotplug(HotplugEvent::arrived, pedalFilter, note("here"));
    EXPECT_THAT(heard, ElementsAre("here arrived inside"));

    listen();
    EXPECT_EQ(heard.size(), 1U) << "the arrival before the registration is no news";
    const UsbDevicePointer first = last;
    for (int i = 0; i < 2; ++i) {
        pedal.unplug();
        pedal.plugIn();
        executor.settle();
    }
    EXPECT_THAT(heard, ElementsAre("here arrived inside", "leaving left", "later arrived", "once arrived",
                                   "here arrived", "leaving left", "later arrived", "here arrived"));
    EXPECT_FALSE(port.open(first, result));
    EXPECT_EQ(result, usbNoDevice) << "the pedal of the first plug has left";
    EXPECT_TRUE(port.open(last, result));
}

TEST_F(Port, OpensWhatIsThereAndCountsHandles) {
    EXPECT_FALSE(open());
    EXPECT_EQ(result, usbNoDevice);
    pedal.plugIn();
    EXPECT_FALSE(port.open(pedalVendor, 0x0105, result));
    port.setOpenResult(usbAccess);
    EXPECT_FALSE(open());
    EXPECT_EQ(result, usbAccess);
    port.setOpenResult(usbSuccess);
    {
        const auto handle = open();
        EXPECT_EQ(result, usbSuccess);
        const auto second = port.open(pedalVendor, pedalProduct, result);
        EXPECT_EQ(second->claimInterface(pedalInterface), usbBusy);
        EXPECT_EQ(handle->releaseInterface(pedalInterface), usbSuccess);
        EXPECT_EQ(second->claimInterface(pedalInterface), usbSuccess);
        EXPECT_EQ(port.openHandles(), 2);
    }
    EXPECT_EQ(port.openHandles(), 0);
    EXPECT_TRUE(open()) << "and claimed: a closed handle holds nothing";
}

TEST_F(Port, CarriesTransfersAndTheirFailures) {
    pedal.plugIn();
    const auto handle = open();
    Bytes reply(8);
    std::size_t transferred = 99;
    Bytes piece(64);
    handle->releaseInterface(pedalInterface);
    EXPECT_EQ(handle->bulkIn(pedalBulkIn, piece, transferred), usbIo) << "not claimed";
    EXPECT_EQ(transferred, 0U);
    handle->claimInterface(pedalInterface);
    EXPECT_EQ(handle->control(0xE1, pedalRequest, 0, 1, reply), 8);
    EXPECT_EQ(reply[answerOffset], 'Y');
    pedal.plan(*faultFromText("stall@in"));
    EXPECT_EQ(handle->bulkIn(pedalBulkIn, piece, transferred), usbPipe);
    EXPECT_EQ(transferred, 0U);
    pedal.plan(*faultFromText("overrun@in"));
    EXPECT_EQ(handle->bulkIn(pedalBulkIn, piece, transferred), usbSuccess);
    EXPECT_GT(transferred, piece.size());
    EXPECT_EQ(handle->bulkOut(pedalBulkOut, piece, transferred), usbPipe) << "nothing announced";
    pedal.plan(*faultFromText("shorten@E9"));
    EXPECT_EQ(handle->control(0xE9, pedalRequest, 1, 0, reply), 4);
    pedal.plan(*faultFromText("unplug@E9"));
    EXPECT_EQ(handle->control(0xE9, pedalRequest, 1, 0, reply), usbNoDevice);

    pedal.plugIn();
    EXPECT_EQ(handle->control(0xE9, pedalRequest, 1, 0, reply), usbNoDevice) << "the old handle stays dead";
    EXPECT_EQ(handle->bulkOut(pedalBulkOut, piece, transferred), usbNoDevice);
    EXPECT_EQ(handle->claimInterface(pedalInterface), usbNoDevice);
    EXPECT_EQ(handle->reset(), usbNoDevice);
    EXPECT_EQ(open()->control(0xE9, pedalRequest, 1, 0, reply), 8);
}

TEST_F(Port, EndsAWaitingTransferAtAResetAndAtADeparture) {
    pedal.plugIn();
    const auto handle = open();
    for (const bool unplugged : {false, true}) {
        pedal.plan(*faultFromText("silence@E9"));
        int answer = 0;
        bool ended = false;
        executor.background(Priority::high, [&] {
            Bytes reply(8);
            answer = handle->control(0xE9, pedalRequest, 1, 0, reply);
            ended = true;
        });
        executor.advance(1h);
        EXPECT_FALSE(ended);
        if (unplugged) {
            pedal.unplug();
        } else {
            EXPECT_EQ(handle->reset(), usbSuccess);
        }
        executor.settle();
        EXPECT_TRUE(ended);
        EXPECT_EQ(answer, usbNoDevice);
    }
}

TEST(PortOnThreads, AResetFromAnotherThreadEndsARead) {
    StandardExecutor executor;
    SimulatedPedal pedal(executor, {});
    SimulatedPort port(executor, pedal);
    pedal.plugIn();
    UsbResult result = usbSuccess;
    const auto handle = port.open(pedalVendor, pedalProduct, result);
    handle->claimInterface(pedalInterface);
    std::promise<UsbResult> read;
    executor.background(Priority::high, [&] {
        Bytes piece(64);
        std::size_t transferred = 0;
        read.set_value(handle->bulkIn(pedalBulkIn, piece, transferred));
    });
    auto answer = read.get_future();
    while (pedal.journal().size() < 2) {
        std::this_thread::yield();
    }
    handle->reset();
    EXPECT_EQ(answer.get(), usbNoDevice);
}

}  // namespace
}  // namespace kzq::simulator
