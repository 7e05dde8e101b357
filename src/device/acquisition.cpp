#include "device/acquisition.h"

#include <string>
#include <utility>

#include "device/kzq7306.h"
#include "platform/log.h"

namespace kzq {

namespace {

Failure failureOfOpening(UsbResult result) {
    switch (result) {
        case usbAccess:
            return Failure::noPermission;
        case usbBusy:
            return Failure::heldByAnother;
        case usbNoDevice:
        case usbNotFound:
            return Failure::noPedal;
        default:
            return Failure::cannotOpen;
    }
}

}  // namespace

void KZQ7306::giveUp(std::string_view tag, Failure failure) {
    fail(failure);
    log(LogCategory::device, std::string(tag) + " " + std::string(failureName(failure)));
    KZQ730CleanUpAndExit::raise();
}

void KZQ7306::acquire(const UsbDevicePointer& device, std::shared_ptr<UsbHandle>& handle) {
    auto result = usbSuccess;
    handle = counted(0, [&] {
        return device ? environment_.usb.open(device, result)
                      : environment_.usb.open(pedalVendor, pedalProduct, result);
    });
    if (!handle) {
        giveUp(device ? "core:1" : "core:2", failureOfOpening(result));
    }
    // A successful detach (0) ends the acquisition and a failed one does not: the pedal's own interface
    // never has a driver, so if a driver could be detached, somebody else is using the pedal.
    if (handle->kernelDriverActive(pedalInterface) != 0 && !handle->detachKernelDriver(pedalInterface)) {
        giveUp("core:3", Failure::kernelDriver);
    }
    const auto claimed = counted(0, [&] { return handle->claimInterface(pedalInterface); });
    if (claimed != usbSuccess) {
        giveUp("core:4", failureOfOpening(claimed));
    }
}

bool KZQ7306::core(const UsbDevicePointer& device) {
    const std::lock_guard guard(*lock_);
    std::shared_ptr<UsbHandle> handle;
    bool acquired = false;
    try {
        decore();
        acquire(device, handle);
        acquired = true;
    } catch (const KZQ730CleanUpAndExit&) {
        acquired = false;  // the reason is logged where it was raised
    } catch (const std::exception& error) {
        log(LogCategory::device, std::string("core: ") + error.what());
        fail(Failure::cannotOpen);
        acquired = false;
    }
    if (!acquired) {
        acquisitionFailure_ = lastFailure();
        handle.reset();
        decore();
        return false;
    }
    acquisitionFailure_ = Failure::none;
    const std::lock_guard mirror(mirror_);
    core_ = std::move(handle);
    return true;
}

void KZQ7306::decore() {
    const std::lock_guard guard(*lock_);
    std::shared_ptr<UsbHandle> handle;
    {
        const std::lock_guard mirror(mirror_);
        handle = std::exchange(core_, nullptr);
        version_.reset();
    }
    if (handle) {
        handle->releaseInterface(pedalInterface);
    }
}

std::shared_ptr<UsbHandle> KZQ7306::core() const {
    const std::lock_guard mirror(mirror_);
    return core_;
}

}  // namespace kzq
