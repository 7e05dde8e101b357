#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <future>

#include "audio/wave.h"
#include "device/kzq7306.h"
#include "loops/facts.h"
#include "platform/little_endian.h"
#include "platform/standard_executor.h"

namespace kzq::bench {

/// What a pedal sends, over and over.
inline const std::array<std::uint8_t, 1U << 20U>& pattern() {
    static const auto bytes = [] {
        std::array<std::uint8_t, 1U << 20U> made{};
        for (std::size_t i = 0; i < made.size(); ++i) {
            made.at(i) = static_cast<std::uint8_t>(i * 31 + i / 251);
        }
        return made;
    }();
    return bytes;
}

/// One copy of `piece`, the least that a transfer can cost.
inline void copyPiece(std::span<std::uint8_t> piece, std::size_t position) {
    std::memcpy(piece.data(), pattern().data() + position % pattern().size(), piece.size());
}

/// A port with a pedal that answers at once: one loop in slot 1, and room for any other. A bulk transfer is
/// one copy.
class BarePedal : public UsbPort {
  public:
    std::uint32_t frames = 0;  ///< of the loop

    UsbResult initialize() override { return usbSuccess; }
    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& /*filter*/,
                              HotplugCallback callback) override {
        if (event == HotplugEvent::arrived) {
            callback(device_, event);
        }
        return usbSuccess;
    }
    UsbResult handleEvents() override {
        std::promise<void>().get_future().wait();  // for ever
        return usbSuccess;
    }
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& /*device*/, UsbResult& result) override {
        result = usbSuccess;
        return std::make_unique<Handle>(*this);
    }
    std::unique_ptr<UsbHandle> open(std::uint16_t /*vendor*/, std::uint16_t /*product*/,
                                    UsbResult& result) override {
        return open(device_, result);
    }

  private:
    struct Device : UsbDevice {};

    class Handle : public UsbHandle {
      public:
        explicit Handle(BarePedal& pedal) : pedal_(pedal) {}

        int kernelDriverActive(int /*interface*/) override { return 0; }
        UsbResult detachKernelDriver(int /*interface*/) override { return usbSuccess; }
        UsbResult claimInterface(int /*interface*/) override { return usbSuccess; }
        UsbResult releaseInterface(int /*interface*/) override { return usbSuccess; }
        int control(std::uint8_t code, std::uint8_t /*request*/, std::uint16_t /*value*/,
                    std::uint16_t /*index*/, std::span<std::uint8_t> reply) override {
            std::ranges::fill(reply, std::uint8_t{0});
            position_ = 0;
            if (code == wire::firstLoops.code) {
                storeU32(reply, 0, pedal_.frames);
                reply[4] = 120;  // the tempo
                reply[5] = 1;    // the channel
            } else if (code == wire::capacityAndVersion.code) {
                storeU32(reply, 0, static_cast<std::uint32_t>(capacityFrames) - pedal_.frames);
                std::ranges::copy(std::string_view("1.05"), reply.begin() + 4);
            } else if (code == wire::stage.code) {
                reply[stageOffset] = 'p';
            }
            return static_cast<int>(reply.size());
        }
        UsbResult bulkIn(std::uint8_t /*endpoint*/, std::span<std::uint8_t> into, std::size_t /*due*/,
                         std::size_t& transferred) override {
            copyPiece(into, position_);
            position_ += into.size();
            transferred = into.size();
            return usbSuccess;
        }
        UsbResult bulkOut(std::uint8_t /*endpoint*/, std::span<const std::uint8_t> from,
                          std::atomic<std::size_t>& transferred) override {
            std::memcpy(sink_.data(), from.data(), std::min(sink_.size(), from.size()));
            transferred = from.size();
            return usbSuccess;
        }
        UsbResult reset() override { return usbSuccess; }

      private:
        BarePedal& pedal_;
        std::size_t position_ = 0;
        std::array<std::uint8_t, transferPiece> sink_{};
    };

    UsbDevicePointer device_ = std::make_shared<Device>();
};

/// The link with that pedal. One for the whole program, never destroyed: its threads go on.
class BareLink {
  public:
    static BareLink& get() {
        static auto* const link = new BareLink;
        return *link;
    }

    BarePedal pedal;
    std::shared_ptr<KZQ7306> looper;

  private:
    struct Delegate : KZQ7306Delegate {
        explicit Delegate(StandardExecutor& executor) : executor_(executor) {}
        void looperIsConnected(KZQ7306& /*looper*/) override { executor_.stop(); }
        void looperHasBeenDisconnected() override {}
        void looperInternalStateChanged(const Status& /*status*/) override {}

      private:
        StandardExecutor& executor_;
    };

    BareLink() {
        KZQ7306::load({executor_, pedal, [] { return std::uint64_t{36}; }});
        executor_.main([this] { KZQ7306::initialize(delegate_); });
        executor_.run();
        looper = KZQ7306::looper();
    }

    StandardExecutor executor_;
    std::shared_ptr<Delegate> delegate_ = std::make_shared<Delegate>(executor_);
};

}  // namespace kzq::bench
