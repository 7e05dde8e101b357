// flash-probe: installs 17,000,000 bytes of firmware, more than the kernel takes in one transfer, on the
// pedal that is plugged in, through the program's own device link. Status 0 when the link says that it went
// well.

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>

#include "device/kzq7306.h"
#include "device/libusb/libusb_port.h"
#include "platform/standard_executor.h"

namespace {

using namespace kzq;

constexpr std::size_t imageSize = 17'000'000;

std::vector<std::uint8_t> image() {
    constexpr std::string_view banner = "7306 firmware 2.17";
    std::vector<std::uint8_t> bytes(imageSize);
    std::uint32_t noise = 7306;
    for (auto& byte : bytes) {
        noise = noise * 1'664'525 + 1'013'904'223;
        byte = static_cast<std::uint8_t>(noise >> 24U);
    }
    std::ranges::copy(banner, bytes.begin());
    return bytes;
}

[[noreturn]] void leave(bool well, std::string_view sentence) {
    std::cout << "        " << sentence << std::endl;
    std::_Exit(well ? EXIT_SUCCESS : EXIT_FAILURE);
}

class Flasher : public KZQ7306Delegate {
  public:
    void looperIsConnected(KZQ7306& looper) override {
        std::cout << "        the pedal is there, "
                  << (looper.factoryBlank() ? "as its loader" : "with firmware") << std::endl;
        if (std::exchange(started_, true)) {
            return;
        }
        const bool accepted = looper.flashFirmware(image(), [](bool flashed) {
            leave(flashed, flashed ? "image and trailer went out" : "it was not installed");
        });
        if (!accepted) {
            leave(false, "the link does not start it");
        }
    }
    void looperHasBeenDisconnected() override {}
    void looperInternalStateChanged(const Status& /*status*/) override {}

  private:
    bool started_ = false;
};

}  // namespace

int main() {
    StandardExecutor executor;
    LibusbPort usb;
    KZQ7306::load({executor, usb, [] { return std::uint64_t{36}; }});
    const auto flasher = std::make_shared<Flasher>();
    KZQ7306::initialize(flasher);
    executor.mainAfter(std::chrono::seconds(60), [] { leave(false, "it takes longer than a minute"); });
    executor.run();
    return EXIT_FAILURE;
}
