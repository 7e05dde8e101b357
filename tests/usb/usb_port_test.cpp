#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/fsuid.h>
#include <unistd.h>

#include <cstdlib>
#include <future>
#include <stdexcept>

#include "device/libusb/libusb_port.h"
#include "device/libusb/port_lock.h"
#include "device/simulator/emulated/umock_pedal.h"
#include "hotplug_watch.h"
#include "platform/descriptor.h"
#include "platform/log.h"
#include "virtual_executor.h"

namespace kzq {
namespace {

using simulator::Fault;
using simulator::FaultKind;
using simulator::SimulatedPedal;
using simulator::WireEvent;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class UsbPortTest : public testing::Test {
  protected:
    explicit UsbPortTest(unsigned readsInFlight = 1) : port_(readsInFlight) {
        setLogSink([this](LogCategory, std::string_view line) { log_.emplace_back(line); });
        handleEventsInTheBackground();
        EXPECT_EQ(port_.initialize(), usbSuccess);
        watch_.watch(port_, HotplugEvent::arrived, false);
        watch_.watch(port_, HotplugEvent::left, false);
        log_.clear();
    }

    ~UsbPortTest() override {
        handle_.reset();
        if (pedal_.isPlugged()) {
            watch_.forget();
            pedal_.unplug();
            EXPECT_TRUE(watch_.waitFor(1)) << "the next test would hear of it";
        }
        setLogSink({});
    }

    /// Plugs the pedal in and returns the device once libusb has announced it.
    UsbDevicePointer arrive() {
        watch_.forget();
        pedal_.plugIn();
        EXPECT_TRUE(watch_.waitFor(1));
        return watch_.seen().at(0).device;
    }

    UsbHandle& acquire() {
        UsbResult result = usbOther;
        handle_ = port_.open(arrive(), result);
        if (!handle_) {
            throw std::runtime_error("the pedal cannot be opened");
        }
        EXPECT_EQ(handle_->kernelDriverActive(pedalInterface), 0);
        EXPECT_EQ(handle_->claimInterface(pedalInterface), usbSuccess);
        return *handle_;
    }

    int command(std::uint8_t code, std::uint16_t value = 1, std::uint16_t index = 0) {
        reply_.fill(0);
        return handle_->control(code, pedalRequest, value, index, reply_);
    }

    void plan(FaultKind kind, Fault::Where where, std::uint32_t count = 1) {
        pedal_.plan({.kind = kind, .where = where, .code = std::nullopt, .count = count});
    }

    /// A read that the pedal does not answer, on another thread.
    std::future<UsbResult> blockedRead() {
        plan(FaultKind::silence, Fault::Where::bulkIn);
        auto read = std::async(std::launch::async, [this] {
            std::vector<std::uint8_t> piece(transferPiece);
            std::size_t transferred = 1;
            const UsbResult result = handle_->bulkIn(pedalBulkIn, piece, piece.size(), transferred);
            EXPECT_EQ(transferred, 0);
            return result;
        });
        EXPECT_TRUE(bus_.waitUntilBlocked());
        return read;
    }

    static UsbResult soon(std::future<UsbResult>& read) {
        if (read.wait_for(patience) != std::future_status::ready) {
            ADD_FAILURE() << "the transfer does not end";
            std::abort();  // its thread could not be joined
        }
        return read.get();
    }

    std::vector<std::string> log_;
    test::VirtualExecutor clock_;
    SimulatedPedal pedal_{clock_, {.memory = {simulator::StoredLoop{Bytes(6000), 120, 1}}}};
    UmockPedal bus_{pedal_};
    HotplugWatch watch_;
    LibusbPort port_;
    std::unique_ptr<UsbHandle> handle_;
    std::array<std::uint8_t, replyLength> reply_{};
};

TEST_F(UsbPortTest, AnnouncesPedalsThatAreThereComeAndGo) {
    arrive();
    HotplugWatch there;
    HotplugWatch forgotten;
    {
        LibusbPort late;
        ASSERT_EQ(late.initialize(), usbSuccess);
        there.watch(late, HotplugEvent::arrived, true);
        ASSERT_EQ(there.seen().size(), 1) << "not announced inside the registration";
        EXPECT_EQ(there.seen()[0].thread, std::this_thread::get_id());
        LibusbPort short_;
        forgotten.watch(short_, HotplugEvent::left, false);
    }
    HotplugWatch later;
    later.watch(port_, HotplugEvent::left, false);
    pedal_.unplug();
    ASSERT_TRUE(later.waitFor(1));
    EXPECT_EQ(later.seen()[0].event, HotplugEvent::left);
    EXPECT_NE(later.seen()[0].thread, std::this_thread::get_id());
    EXPECT_THAT(forgotten.seen(), IsEmpty()) << "its port was gone";
    EXPECT_EQ(there.seen().size(), 1) << "its port was gone";
}

TEST_F(UsbPortTest, ADepartureEndsABlockedReadAndLeavesTheReferenceSafe) {
    const UsbDevicePointer first = arrive();
    UsbResult result = usbOther;
    handle_ = port_.open(first, result);
    ASSERT_EQ(result, usbSuccess);
    auto read = blockedRead();
    pedal_.unplug();
    EXPECT_EQ(soon(read), usbNoDevice);
    EXPECT_EQ(command(0xE9), usbNoDevice);
    ASSERT_TRUE(watch_.waitFor(2));
    handle_.reset();
    watch_.forget();  // now only `first` keeps the device

    EXPECT_EQ(port_.open(first, result), nullptr);
    EXPECT_EQ(result, usbNoDevice);
    EXPECT_THAT(log_, Contains(HasSubstr("LIBUSB_ERROR_NO_DEVICE")));

    acquire();
    EXPECT_EQ(command(0xE9), int{replyLength});
    EXPECT_EQ(reply_[stageOffset], 'p');
    EXPECT_EQ(port_.open(first, result), nullptr) << "the old one is not the new one";
}

TEST_F(UsbPortTest, AResetFromAnotherThreadEndsABlockedReadAndKeepsTheHandle) {
    acquire();
    auto read = blockedRead();
    EXPECT_EQ(handle_->reset(), usbSuccess);
    EXPECT_EQ(soon(read), usbNoDevice);
    EXPECT_EQ(command(0xE9), int{replyLength});
    EXPECT_EQ(reply_[stageOffset], 'p');
    EXPECT_EQ(watch_.seen().size(), 1) << "a reset is no departure";
}

TEST_F(UsbPortTest, AnInterfaceThatTheSystemTakesAwayIsADepartureAndAnArrival) {
    acquire();
    watch_.forget();
    pedal_.clearJournal();
    bus_.bind("usbtmc");  // as when the computer wakes up
    EXPECT_EQ(command(0xE2, 3, 1), usbNoDevice);
    EXPECT_EQ(command(0xE3, 3, 0), usbNoDevice);
    std::atomic<std::size_t> transferred = 1;
    EXPECT_EQ(handle_->bulkOut(pedalBulkOut, Bytes(64), transferred), usbNoDevice);
    EXPECT_EQ(transferred, 0);
    EXPECT_THAT(pedal_.journal(), IsEmpty());
    ASSERT_EQ(watch_.seen().size(), 2) << "once, however often it is asked";
    EXPECT_EQ(watch_.seen()[0].event, HotplugEvent::left);
    EXPECT_EQ(watch_.seen()[1].event, HotplugEvent::arrived);

    handle_.reset();
    UsbResult result = usbOther;
    handle_ = port_.open(watch_.seen()[1].device, result);
    ASSERT_EQ(result, usbSuccess);
    EXPECT_EQ(handle_->kernelDriverActive(pedalInterface), 0) << "that driver is the port's own business";
    EXPECT_EQ(handle_->claimInterface(pedalInterface), usbSuccess);
    EXPECT_EQ(command(0xE9), int{replyLength});
}

TEST_F(UsbPortTest, ASecondProgramIsKeptOutAndHasItsTurn) {
    acquire();
    const auto device = watch_.seen().at(0).device;
    watch_.forget();
    LibusbPort second;
    ASSERT_EQ(second.initialize(), usbSuccess);
    UsbResult result = usbOther;
    EXPECT_EQ(second.open(device, result), nullptr);
    EXPECT_EQ(result, usbBusy);
    EXPECT_EQ(command(0xE9), int{replyLength});
    EXPECT_THAT(watch_.seen(), IsEmpty());

    handle_->releaseInterface(pedalInterface);
    handle_.reset();
    ASSERT_TRUE(watch_.waitFor(1)) << "nobody says that it is free";
    EXPECT_EQ(watch_.seen()[0].event, HotplugEvent::arrived);
    handle_ = second.open(watch_.seen()[0].device, result);
    EXPECT_EQ(result, usbSuccess);
}

TEST_F(UsbPortTest, APedalThatRestartsComesBackToTheProgramThatHadIt) {
    acquire();
    const Descriptor port(::open(PortLock::fileOf("1-1").c_str(), O_RDWR | O_CLOEXEC));
    const auto othersCanHaveIt = [&port] {
        return ::flock(port.get(), LOCK_EX | LOCK_NB) == 0 && ::flock(port.get(), LOCK_UN) == 0;
    };
    UsbResult result = usbOther;
    plan(FaultKind::refuse, Fault::Where::control);
    ASSERT_EQ(command(0xE4), int{replyLength});
    const auto device = watch_.seen().at(0).device;
    handle_.reset();
    EXPECT_TRUE(othersCanHaveIt()) << "it did not go";
    handle_ = port_.open(device, result);
    ASSERT_EQ(command(0xE4), int{replyLength});
    clock_.advance(std::chrono::seconds(1));
    handle_.reset();
    EXPECT_FALSE(pedal_.isPlugged() || othersCanHaveIt());
    clock_.advance(std::chrono::seconds(1));
    ASSERT_TRUE(watch_.waitFor(3));
    EXPECT_FALSE(othersCanHaveIt()) << "it has not been opened";
    const auto loader = watch_.seen()[2].device;
    handle_ = port_.open(loader, result);
    ASSERT_EQ(result, usbSuccess);
    handle_.reset();
    EXPECT_TRUE(othersCanHaveIt());

    watch_.forget();
    ::flock(port.get(), LOCK_EX);
    EXPECT_EQ(port_.open(loader, result), nullptr) << "another program waits for its pedal";
    EXPECT_EQ(result, usbBusy);
    ::flock(port.get(), LOCK_UN);
    EXPECT_TRUE(watch_.waitFor(1));
}

TEST_F(UsbPortTest, TellsWhyAPedalCannotBeOpened) {
    UsbResult result = usbOther;
    EXPECT_EQ(port_.open(pedalVendor, pedalProduct, result), nullptr);
    EXPECT_EQ(result, usbNoDevice);
    EXPECT_EQ(port_.open(nullptr, result), nullptr);
    EXPECT_EQ(result, usbInvalid);

    const UsbDevicePointer device = arrive();
    bus_.setPermitted(false);
    if (geteuid() == 0) {
        setfsuid(65'534);  // root may open anything
    }
    EXPECT_EQ(port_.open(device, result), nullptr);
    EXPECT_EQ(result, usbAccess);
    EXPECT_EQ(port_.open(pedalVendor, pedalProduct, result), nullptr);
    EXPECT_EQ(result, usbAccess);
    EXPECT_THAT(log_, Contains(HasSubstr("LIBUSB_ERROR_ACCESS")).Times(2));
    setfsuid(geteuid());

    bus_.setPermitted(true);
    ASSERT_TRUE(watch_.waitFor(2)) << "rules that come later are not noticed";
    handle_ = port_.open(pedalVendor, pedalProduct, result);
    EXPECT_EQ(result, usbSuccess);
    EXPECT_EQ(command(0xE9), int{replyLength});
}

TEST_F(UsbPortTest, SendsALargeWriteInPiecesAndCountsWhatWentOut) {
    pedal_.setStage('b');
    acquire();
    const auto pieces = [this] {
        std::vector<std::uint32_t> lengths;
        for (const WireEvent& event : pedal_.journal()) {
            if (event.kind == WireEvent::Kind::bulkOut) {
                lengths.push_back(event.length);
            }
        }
        pedal_.clearJournal();
        return lengths;
    };
    const std::vector<std::uint8_t> image(200'000, 0x5A);
    std::atomic<std::size_t> transferred = 0;
    ASSERT_EQ(command(0xE4), int{replyLength});
    clock_.advance(std::chrono::seconds(8));

    EXPECT_EQ(handle_->bulkOut(pedalBulkOut, image, transferred), usbSuccess);
    EXPECT_EQ(transferred, 200'000);
    EXPECT_THAT(pieces(), ElementsAre(65'536, 65'536, 65'536, 3'392));

    plan(FaultKind::shorten, Fault::Where::bulkOut, 2);
    EXPECT_EQ(handle_->bulkOut(pedalBulkOut, image, transferred), usbSuccess);
    EXPECT_EQ(transferred, 65'536 + 32'768) << "ends with the short piece, so that nothing is left out";
    EXPECT_THAT(pieces(), ElementsAre(65'536, 65'536));

    plan(FaultKind::overrun, Fault::Where::bulkOut);
    EXPECT_EQ(handle_->bulkOut(pedalBulkOut, image, transferred), usbSuccess);
    EXPECT_GT(transferred, image.size()) << "more than a piece is seen, though it is less than the whole";

    plan(FaultKind::stall, Fault::Where::bulkOut, 3);
    EXPECT_EQ(handle_->bulkOut(pedalBulkOut, image, transferred), usbPipe);
    EXPECT_EQ(transferred, 2 * 65'536);

    EXPECT_THAT(pedal_.violations(), IsEmpty());
}

TEST_F(UsbPortTest, SaysNoInThePedalsPlaceOnlyWhereTheHostRefused) {
    acquire();
    bus_.rules().nextControlStatus = -EPROTO;
    EXPECT_EQ(command(0xE1, 0, 1), usbIo);
    EXPECT_EQ(reply_[answerOffset], 0) << "lost on the bus: nobody said no";
    plan(FaultKind::stall, Fault::Where::control);
    EXPECT_EQ(command(0xE1, 0, 1), usbPipe);
    EXPECT_EQ(reply_[answerOffset], 0) << "the pedal stalled, which the host must not judge";

    bus_.rules().checksRecipient = true;
    pedal_.clearJournal();
    log_.clear();
    EXPECT_EQ(command(0xE1, 0, 1), int{replyLength});
    EXPECT_EQ(reply_[answerOffset], refusal);
    EXPECT_EQ(command(0xE1, 0, 2), int{replyLength});
    EXPECT_EQ(reply_[answerOffset], refusal);
    EXPECT_THAT(pedal_.journal(), IsEmpty());
    EXPECT_THAT(log_, Contains(HasSubstr("the host refused request 0xE1")));
    EXPECT_TRUE(handle_->obstacle());

    EXPECT_EQ(command(0xE2, 0, 1), int{replyLength});
    EXPECT_FALSE(handle_->obstacle());
    EXPECT_NE(reply_[answerOffset], refusal) << "all other commands pass";
}

/// With several reads at once, a caller sees what it would see with one.
class InFlight : public UsbPortTest {
  protected:
    InFlight() : UsbPortTest(mostReadsInFlight) {
        for (std::size_t i = 0; i < 50'000; ++i) {
            whole_.push_back(static_cast<std::uint8_t>(i * 31 + i / 251));
        }
        pedal_.setLoop(0, simulator::StoredLoop{whole_});
        whole_.resize(50'048);  // padded
        acquire();
    }

    ~InFlight() override { EXPECT_THAT(pedal_.violations(), IsEmpty()) << "more was asked for than was due"; }

    /// The loop's bytes until there are so many, or a read fails.
    std::pair<Bytes, UsbResult> read(std::size_t most = 50'048) {
        EXPECT_EQ(command(0xE1, 0, 1), int{replyLength});
        std::pair<Bytes, UsbResult> came{{}, usbSuccess};
        while (came.second == usbSuccess && came.first.size() < most) {
            std::array<std::uint8_t, transferPiece> piece{};
            const auto due = whole_.size() - came.first.size();
            std::size_t transferred = 0;
            came.second = handle_->bulkIn(pedalBulkIn, std::span(piece).first(std::min(due, piece.size())),
                                          due, transferred);
            came.first.insert(came.first.end(), piece.begin(),
                              piece.begin() + static_cast<std::ptrdiff_t>(transferred));
        }
        return came;
    }

    Bytes whole_;
};

TEST_F(InFlight, TheBytesAreTheSameAlsoBehindAShortReadAndAStall) {
    plan(FaultKind::shorten, Fault::Where::bulkIn, 3);
    EXPECT_EQ(read().first, whole_);
    plan(FaultKind::stall, Fault::Where::bulkIn, 3);
    const auto [bytes, result] = read();
    EXPECT_EQ(result, usbPipe);
    EXPECT_EQ(bytes.size(), 2 * transferPiece);
    EXPECT_EQ(bus_.held(), 0);
    EXPECT_EQ(read().first, whole_);
}

TEST_F(InFlight, WhatIsLeftUnreadIsTakenBack) {
    plan(FaultKind::silence, Fault::Where::bulkIn, 4);
    EXPECT_EQ(read(3 * transferPiece).second, usbSuccess);
    EXPECT_TRUE(bus_.waitUntilBlocked(mostReadsInFlight - 1));
    EXPECT_EQ(handle_->reset(), usbSuccess);
    EXPECT_EQ(bus_.held(), 0);
    EXPECT_EQ(read(transferPiece).second, usbSuccess);
    EXPECT_EQ(read().first, whole_);
}

}  // namespace
}  // namespace kzq
