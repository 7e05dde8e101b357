#include "device/acquisition.h"

#include <string>
#include <utility>

#include "device/kzq7306.h"
#include "platform/log.h"

namespace kzq {

namespace {

Trouble::Kind troubleOfOpening(UsbResult result) {
    switch (result) {
        case usbAccess:
            return Trouble::Kind::noPermission;
        case usbBusy:
            return Trouble::Kind::heldByAnother;
        case usbNoDevice:
        case usbNotFound:
            return Trouble::Kind::noPedal;
        default:
            return Trouble::Kind::cannotOpen;
    }
}

}  // namespace

void KZQ7306::giveUp(std::string_view tag, Trouble::Kind why) {
    fail(why);
    log(LogCategory::device, std::string(tag) + " " + std::string(troubleName(why)));
    KZQ730CleanUpAndExit::raise();
}

void KZQ7306::acquire(const UsbDevicePointer& device, std::shared_ptr<UsbHandle>& handle) {
    auto result = usbSuccess;
    handle = counted(0, [&] {
        return device ? environment_.usb.open(device, result)
                      : environment_.usb.open(pedalVendor, pedalProduct, result);
    });
    if (!handle) {
        giveUp(device ? "core:1" : "core:2", troubleOfOpening(result));
    }
    // A successful detach (0) ends the acquisition and a failed one does not: the pedal's own interface
    // never has a driver, so if a driver could be detached, somebody else is using the pedal.
    if (handle->kernelDriverActive(pedalInterface) != 0 && !handle->detachKernelDriver(pedalInterface)) {
        giveUp("core:3", Trouble::Kind::kernelDriver);
    }
    const auto claimed = counted(0, [&] { return handle->claimInterface(pedalInterface); });
    if (claimed != usbSuccess) {
        giveUp("core:4", troubleOfOpening(claimed));
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
        fail(Trouble::Kind::cannotOpen);
        acquired = false;
    }
    if (!acquired) {
        setAcquisitionTrouble(lastTrouble());
        handle.reset();
        decore();
        return false;
    }
    setAcquisitionTrouble(std::nullopt);
    const std::lock_guard mirror(mirror_);
    core_ = std::move(handle);
    return true;
}

void KZQ7306::decore() {
    const std::lock_guard guard(*lock_);
    std::shared_ptr<UsbHandle> handle;
    ++doubts_;
    lastSequence_.reset();
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
