#include "device/hotplug.h"

#include <exception>
#include <string>

#include "device/class_state.h"
#include "device/replies.h"
#include "device/silence.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto firstPoll = std::chrono::seconds(5);

/// Queues `handler` on the main thread, where it runs under the device lock: at once, or, if a batch holds
/// the lock, in its turn once the batch is done.
int handOver(const UsbDevicePointer& device, void (*handler)(const UsbDevicePointer&)) {
    const auto environment = classState().getEnvironment();
    const auto lock = classState().getLock();
    if (environment) {
        const auto turn = [device, handler] {
            try {
                handler(device);
            } catch (const std::exception& error) {
                log(LogCategory::device, std::string("hot-plug: ") + error.what());
            }
        };
        environment->executor.main([lock, turn] { lock->mainTurn(turn); });
    }
    return 0;
}

}  // namespace

int Plugged(const UsbDevicePointer& device, HotplugEvent /*event*/) {
    return handOver(device, &KZQ7306::plugged);
}

int Unplugged(const UsbDevicePointer& device, HotplugEvent /*event*/) {
    return handOver(device, &KZQ7306::unplugged);
}

void KZQ7306::initialize(const std::shared_ptr<KZQ7306Delegate>& delegate) {
    const auto instance = delegate ? looper() : nullptr;
    if (!instance) {
        return;
    }
    instance->setDelegate(delegate);
    auto& executor = instance->environment_.executor;
    auto& usb = instance->environment_.usb;
    {
        const std::lock_guard guard(*instance->lock_);
        const HotplugFilter filter{pedalVendor, pedalProduct, HotplugFilter::anyClass, true};
        usb.registerHotplug(HotplugEvent::arrived, filter, Plugged);
        usb.registerHotplug(HotplugEvent::left, filter, Unplugged);
        executor.mainAfter(firstPoll, [] { timer(); });
    }
    executor.service("com.kzq.libusb.hotplug-queue", [&usb] { usb.handleEvents(); });
}

void KZQ7306::plugged(const UsbDevicePointer& device) {
    if (const auto instance = looper()) {
        const std::lock_guard guard(*instance->lock_);
        instance->arrived(device);
    }
}

void KZQ7306::arrived(const UsbDevicePointer& device) {
    if (!core(device)) {
        log(LogCategory::device, "plugged:1 the pedal could not be acquired");
        return;
    }
    const auto now = askStage();
    if (!now) {
        return;
    }
    if (*now == stageFactoryBlank) {
        environment_.executor.background(Priority::high, [self = shared_from_this()] {
            if (self->flashPending()) {
                self->completeFirmwareUpdate();
            }
        });
    }
    if (const auto listener = delegate()) {
        listener->looperIsConnected(*this);
    }
}

/// The stage, if it is one that the program knows. Nobody else can end this question: the main thread waits
/// for it.
std::optional<char> KZQ7306::askStage() {
    const auto silent = std::make_shared<std::atomic<bool>>(false);
    const SilenceWatch watch(environment_.executor, shared_from_this(), environment_.arrivalPatience,
                             [weak = weak_from_this(), silent] {
                                 if (const auto self = weak.lock()) {
                                     log(LogCategory::device, "the pedal does not answer: it is reset");
                                     *silent = true;
                                     self->interrupt();
                                 }
                             });
    const auto reply = ask(wire::stage).reply;
    if (!reply) {
        log(LogCategory::device, "plugged:2 the pedal did not answer the stage query");
        setAcquisitionTrouble(Trouble{Trouble::Kind::noStage});
        return std::nullopt;
    }
    const auto now = stageIn(*reply);
    setStage(now);
    if (now != stageNormal && now != stageFactoryBlank) {
        log(LogCategory::device, "plugged:3 the pedal is in an unknown stage");
        setAcquisitionTrouble(Trouble{*silent ? Trouble::Kind::silent : Trouble::Kind::unknownStage});
        return std::nullopt;
    }
    return now;
}

void KZQ7306::unplugged(const UsbDevicePointer& /*device*/) {
    const auto instance = looper();
    if (!instance) {
        return;
    }
    const std::lock_guard guard(*instance->lock_);
    instance->decore();
    instance->setStage(stageNone);
    instance->setAcquisitionTrouble(std::nullopt);
    if (const auto delegate = instance->delegate()) {
        delegate->looperHasBeenDisconnected();
    }
}

}  // namespace kzq
