// What one loop takes from a pedal on USB: by the link, or by libusb alone.
//
//     usb_reads bare SLOT    libusb alone, one piece after the other: the least that it can take
//
//     usb_reads N SLOT       by the link, with N reads in flight
//
// Prints the microseconds from the first piece to the last.

#include <libusb.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "device/kzq7306.h"
#include "device/libusb/libusb_port.h"
#include "device/libusb/usbtmc_road.h"
#include "device/replies.h"
#include "device/wire.h"
#include "platform/standard_executor.h"

namespace kzq::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned patience = 5000;  // milliseconds

struct Span {
    void piece() {
        last = Clock::now();
        first = pieces++ == 0 ? last : first;
    }
    long long microseconds() const {
        return std::chrono::duration_cast<std::chrono::microseconds>(last - first).count();
    }
    Clock::time_point first, last;
    std::size_t pieces = 0;
};

bool ask(libusb_device_handle* pedal, const wire::Command& command, std::uint16_t value, std::uint16_t index,
         std::span<std::uint8_t> reply) {
    const auto wanted = static_cast<std::uint16_t>(reply.size());
    return libusb_control_transfer(pedal, command.code, pedalRequest, value, index, reply.data(), wanted,
                                   patience) == wanted;
}

std::optional<Loop> find(libusb_device_handle* pedal, SlotNumber slot) {
    std::array<std::uint8_t, wire::tableLength> reply{};
    Loops loops;
    if (!ask(pedal, wire::firstLoops, 1, 0, reply)) {
        return {};
    }
    addLoops(loops, reply, 0);
    if (!ask(pedal, wire::lastLoops, 1, 0, reply)) {
        return {};
    }
    addLoops(loops, reply, recordsInReply);
    const auto* const loop = loops.find(slot);
    return loop == nullptr ? std::nullopt : std::optional(*loop);
}

/// By the way around that the link takes, as the host refuses the request.
bool start(libusb_device_handle* pedal, const Loop& loop) {
    std::array<std::uint8_t, replyLength> reply{};
    const usbtmc_request request{wire::importLoop.code, pedalRequest, loop.address, loop.channel,
                                 replyLength};
    const auto outcome =
        UsbtmcRoad().control(pedal, DeviceNode(libusb_get_device(pedal)), pedalInterface, request, reply);
    return !outcome.obstacle && outcome.result == replyLength && !refuses(reply);
}

bool readPieces(libusb_device_handle* pedal, std::size_t bytes, Span& span) {
    std::array<std::uint8_t, transferPiece> piece{};
    while (bytes > 0) {
        int came = 0;
        const auto wanted = std::min(bytes, piece.size());
        if (libusb_bulk_transfer(pedal, pedalBulkIn, piece.data(), static_cast<int>(wanted), &came,
                                 patience) != 0 ||
            static_cast<std::size_t>(came) != wanted) {
            return false;
        }
        span.piece();
        bytes -= wanted;
    }
    return true;
}

bool readBare(SlotNumber slot, Span& span) {
    libusb_context* context = nullptr;
    if (libusb_init(&context) != 0) {
        return false;
    }
    auto* const pedal = libusb_open_device_with_vid_pid(context, pedalVendor, pedalProduct);
    if (pedal == nullptr || libusb_claim_interface(pedal, pedalInterface) != 0) {
        return false;
    }
    const auto loop = find(pedal, slot);
    return loop && start(pedal, *loop) && readPieces(pedal, loop->alignedBytes, span);
}

struct Arrival : KZQ7306Delegate {
    explicit Arrival(StandardExecutor& executor) : executor_(executor) {}
    void looperIsConnected(KZQ7306& /*looper*/) override { executor_.stop(); }
    void looperHasBeenDisconnected() override {}
    void looperInternalStateChanged(const Status& /*status*/) override {}

  private:
    StandardExecutor& executor_;
};

/// Its threads go on: the program ends without destroying anything.
bool readByLink(unsigned inFlight, SlotNumber slot, Span& span) {
    auto& executor = *new StandardExecutor;  // NOLINT(cppcoreguidelines-owning-memory)
    auto& port = *new LibusbPort(inFlight);  // NOLINT(cppcoreguidelines-owning-memory)
    static const auto delegate = std::make_shared<Arrival>(executor);
    KZQ7306::load({executor, port, [] { return std::uint64_t{36}; }});
    executor.main([] { KZQ7306::initialize(delegate); });
    executor.run();
    const auto file = KZQ7306::looper()->importLoop(
        slot.number(), [](std::uint32_t /*bytes*/, std::uint8_t /*slot*/) {},
        [&span](std::span<const std::uint8_t> /*piece*/, std::uint8_t /*slot*/) { span.piece(); });
    return file.has_value();
}

int measure(std::string_view way, SlotNumber slot) {
    Span span;
    const bool came = way == "bare" ? readBare(slot, span)
                                    : readByLink(static_cast<unsigned>(std::atoi(way.data())), slot, span);
    std::printf("%lld\n", span.microseconds());
    std::fprintf(stderr, came ? "" : "the loop did not come\n");
    std::fflush(stdout);
    return came ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

}  // namespace kzq::bench

int main(int argc, char** argv) {
    const auto slot = kzq::SlotNumber::of(argc == 3 ? std::strtoul(argv[2], nullptr, 10) : 0);
    std::_Exit(slot ? kzq::bench::measure(argv[1], *slot) : EXIT_FAILURE);
}
