#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "device/simulator/simulated_port.h"
#include "device/wire.h"
#include "passing_handle.h"

namespace kzq::test {

/// What goes wrong at one USB call.
enum class Mishap : std::uint8_t {
    none,
    // on the way
    lost,         ///< nothing reaches the pedal
    unheard,      ///< the pedal does what it is asked, but its answer is lost
    cut,          ///< half of it comes
    zeros,        ///< a whole reply of zeros
    excess,       ///< more is reported than was asked for
    refusal,      ///< the pedal says no
    hostRefusal,  ///< the host says no in its place
    claimLost,    ///< audio does not pass from here on
    // to the pedal, or by the user; a hook does these
    reset,  ///< by another program: all transfers end
    silence,
    silenceThenCancel,
    silenceThenUnplug,
    unplug,
    backAsNormal,
    backAsLoader,
    backAsAnother,
    cancel,
    quit
};

inline const char* textOf(Mishap mishap) {
    constexpr std::array texts = {"nothing",
                                  "lost",
                                  "done, its answer lost",
                                  "cut in half",
                                  "zeros",
                                  "too much",
                                  "refused",
                                  "refused by the host",
                                  "claim lost",
                                  "reset",
                                  "silent",
                                  "silent, then cancelled",
                                  "silent, then unplugged",
                                  "unplugged",
                                  "unplugged and back",
                                  "back as its loader",
                                  "another pedal",
                                  "cancelled",
                                  "the program ends"};
    return texts.at(static_cast<std::size_t>(mishap));
}

struct UsbCall {
    enum class Kind : std::uint8_t { open, driver, claim, control, bulkIn, bulkOut };

    Kind kind;
    std::uint8_t code = 0;  ///< of a control request

    bool isBulk() const { return kind == Kind::bulkIn || kind == Kind::bulkOut; }
    /// Whether that can happen here, and would be anything else than another mishap.
    bool suffers(Mishap mishap) const {
        const auto* const command = wire::find(code);
        switch (mishap) {
            case Mishap::refusal:
                return command != nullptr && command->refusable;
            case Mishap::hostRefusal:
                return code == wire::importLoop.code;
            case Mishap::zeros:
                return kind == Kind::control;
            case Mishap::claimLost:
                return isBulk() || kind == Kind::claim;
            case Mishap::unheard:
            case Mishap::cut:
            case Mishap::excess:
            case Mishap::silence:
            case Mishap::silenceThenCancel:
            case Mishap::silenceThenUnplug:
                return isBulk() || kind == Kind::control;
            default:
                return true;
        }
    }
    std::string text() const {
        constexpr std::array kinds = {"open", "driver", "claim", "", "bulk in", "bulk out"};
        return command() ? std::string(command()->name) : kinds.at(static_cast<std::size_t>(kind));
    }

  private:
    const wire::Command* command() const { return wire::find(code); }
};

/// What a mishap at a call is for the pedal, if it is anything.
inline void befall(Executor& executor, simulator::SimulatedPedal& pedal, Mishap mishap, const UsbCall& call) {
    using Where = simulator::Fault::Where;
    simulator::Fault fault;
    fault.kind = simulator::FaultKind::stall;
    fault.where = call.kind == UsbCall::Kind::bulkIn    ? Where::bulkIn
                  : call.kind == UsbCall::Kind::bulkOut ? Where::bulkOut
                                                        : Where::control;
    const bool silent = mishap >= Mishap::silence && mishap <= Mishap::silenceThenUnplug;
    if (mishap == Mishap::reset) {
        pedal.reset();
    }
    if (silent) {
        fault.kind = simulator::FaultKind::silence;
    }
    if ((call.isBulk() || call.kind == UsbCall::Kind::control) &&
        (silent || mishap == Mishap::reset || mishap == Mishap::lost)) {
        pedal.plan(fault);
    }
    if (mishap == Mishap::silenceThenUnplug) {
        executor.background(Priority::standard, [&executor, &pedal] {
            executor.sleep(std::chrono::seconds(1));
            pedal.unplug();
        });
    }
    if (mishap >= Mishap::unplug && mishap <= Mishap::backAsAnother) {
        pedal.unplug();
    }
    if (mishap >= Mishap::backAsNormal && mishap <= Mishap::backAsAnother) {
        pedal.setStage(mishap == Mishap::backAsLoader ? stageFactoryBlank : stageNormal);
        pedal.plugIn();
    }
}

/// The simulated pedal on a port that counts the calls of the program, and lets one of them go wrong.
class FaultyPort : public simulator::SimulatedPort {
  public:
    /// `happen` is called before the call goes on, on its thread, and does what happens to the pedal.
    FaultyPort(Executor& executor, simulator::SimulatedPedal& pedal,
               std::function<void(Mishap, const UsbCall&)> happen)
        : SimulatedPort(executor, pedal), pedal_(pedal), happen_(std::move(happen)) {}

    std::vector<UsbCall> calls;  ///< since `arm`

    /// From now on calls are counted; the `at`-th, from 1, goes wrong.
    void arm(std::size_t at = 0, Mishap mishap = Mishap::none) {
        calls.clear();
        at_ = at;
        mishap_ = mishap;
        claimLost_ = false;
    }
    bool struck() const { return at_ != 0 && calls.size() >= at_; }
    Mishap mishap() const { return mishap_; }

    using SimulatedPort::open;
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override {
        if (strike({UsbCall::Kind::open}) == Mishap::lost) {
            result = usbIo;
            return nullptr;
        }
        auto handle = SimulatedPort::open(device, result);
        return handle ? std::make_unique<Handle>(*this, std::move(handle)) : nullptr;
    }

  private:
    class Handle : public PassingHandle {
      public:
        Handle(FaultyPort& port, std::unique_ptr<UsbHandle> handle)
            : PassingHandle(std::move(handle)), port_(port) {}

        int kernelDriverActive(int interface) override {
            const bool lost = port_.strike({UsbCall::Kind::driver}) == Mishap::lost;
            return lost ? int{usbIo} : PassingHandle::kernelDriverActive(interface);
        }
        UsbResult claimInterface(int interface) override {
            const auto mishap = port_.strike({UsbCall::Kind::claim});
            return mishap == Mishap::claimLost ? usbBusy
                   : mishap == Mishap::lost    ? usbIo
                                               : PassingHandle::claimInterface(interface);
        }
        int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                    std::span<std::uint8_t> reply) override {
            const auto mishap = port_.strike({UsbCall::Kind::control, requestType});
            obstacle_.reset();
            if (mishap == Mishap::refusal || mishap == Mishap::hostRefusal) {
                reply[answerOffset] = refusal;
                obstacle_ = mishap == Mishap::hostRefusal
                                ? std::optional(Trouble{Trouble::Kind::roadNotInstalled})
                                : std::nullopt;
                return static_cast<int>(reply.size());
            }
            const int came = PassingHandle::control(requestType, request, value, index, reply);
            return came < 0 ? came : spoiled(mishap, came, reply);
        }
        UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                         std::size_t& transferred) override {
            const auto mishap = port_.strike({UsbCall::Kind::bulkIn});
            if (port_.claimLost_) {
                return (transferred = 0, usbIo);
            }
            const auto room = mishap == Mishap::cut ? into.first(into.size() / 2) : into;
            const auto result = PassingHandle::bulkIn(endpoint, room, due, transferred);
            return told(mishap, result, into.size(), transferred);
        }
        UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                          std::atomic<std::size_t>& transferred) override {
            const auto mishap = port_.strike({UsbCall::Kind::bulkOut});
            if (port_.claimLost_) {
                return (transferred = 0, usbIo);
            }
            const auto part = mishap == Mishap::cut ? from.first(from.size() / 2) : from;
            const auto result = PassingHandle::bulkOut(endpoint, part, transferred);
            return told(mishap, result, from.size(), transferred);
        }
        std::optional<Trouble> obstacle() const override { return obstacle_; }

      private:
        static int spoiled(Mishap mishap, int came, std::span<std::uint8_t> reply) {
            const bool cut = mishap == Mishap::cut;
            if (cut || mishap == Mishap::zeros || mishap == Mishap::unheard) {
                std::ranges::fill(reply.subspan(cut ? reply.size() / 2 : 0), std::uint8_t{0});
            }
            return mishap == Mishap::unheard ? int{usbIo}
                   : cut                     ? came / 2
                                             : came + (mishap == Mishap::excess);
        }
        static UsbResult told(Mishap mishap, UsbResult result, std::size_t asked, auto& transferred) {
            if (mishap == Mishap::unheard) {
                return (transferred = 0, usbIo);
            }
            if (mishap == Mishap::excess) {
                transferred = asked + 64;
            }
            return result;
        }

        FaultyPort& port_;
        std::optional<Trouble> obstacle_;
    };

    /// The mishap that is due, if it is that call's.
    Mishap strike(const UsbCall& call) {
        calls.push_back(call);
        const auto due = calls.size() == at_ ? mishap_ : Mishap::none;
        claimLost_ = claimLost_ || (due == Mishap::claimLost && call.isBulk());
        if (claimLost_ || (due != Mishap::none && due <= Mishap::claimLost)) {
            pedal_.excuseStream();  // of what the program sees
        }
        if (due != Mishap::none) {
            happen_(due, call);
        }
        return due;
    }

    simulator::SimulatedPedal& pedal_;
    const std::function<void(Mishap, const UsbCall&)> happen_;
    std::size_t at_ = 0;
    Mishap mishap_ = Mishap::none;
    bool claimLost_ = false;
};

}  // namespace kzq::test
