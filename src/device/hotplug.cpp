#include "device/hotplug.h"

#include "device/class_state.h"
#include "device/commands.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto firstPoll = std::chrono::seconds(5);

/// Queues `handler` on the main thread, where it runs under the device lock: at once, or, while a batch holds
/// the lock, in its turn when the batch lets go.
int handOver(const UsbDevicePointer& device, void (*handler)(const UsbDevicePointer&)) {
    const auto environment = classState().getEnvironment();
    const auto lock = classState().getLock();
    if (environment) {
        environment->executor.main(
            [lock, device, handler] { lock->mainTurn([device, handler] { handler(device); }); });
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
    const auto instance = looper();
    if (!instance) {
        return;
    }
    const std::lock_guard guard(*instance->lock_);
    if (!instance->core(device)) {
        log(LogCategory::device, "plugged:1 the pedal could not be acquired");
        return;
    }
    const auto reply = instance->control(command::stage);
    if (!reply) {
        log(LogCategory::device, "plugged:2 no answer to the stage query");
        instance->fail(Failure::noStage);
        return;
    }
    instance->setStage(static_cast<char>(reply->at(stageOffset)));
    const auto stage = instance->stage();
    if (stage != stageNormal && stage != stageFactoryBlank) {
        log(LogCategory::device, "plugged:3 the pedal is in an unknown stage");
        instance->fail(Failure::unknownStage);
        return;
    }
    if (stage == stageFactoryBlank) {
        instance->environment_.executor.background(Priority::high, [instance] {
            if (instance->flashPending()) {
                instance->completeFirmwareUpdate();
            }
        });
    }
    if (const auto delegate = instance->delegate()) {
        delegate->looperIsConnected(*instance);
    }
}

void KZQ7306::unplugged(const UsbDevicePointer& /*device*/) {
    const auto instance = looper();
    if (!instance) {
        return;
    }
    const std::lock_guard guard(*instance->lock_);
    instance->decore();
    instance->setStage(stageNone);
    if (const auto delegate = instance->delegate()) {
        delegate->looperHasBeenDisconnected();
    }
}

}  // namespace kzq
