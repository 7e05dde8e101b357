// Feeds hostile requests, twelve bytes each, to the simulated pedal as a USB/IP device. An answer belongs to
// one request that has none yet and is no longer than that allows.

#include <sys/socket.h>

#include <array>
#include <map>
#include <thread>

#include "device/simulator/usbip/connection.h"
#include "device/simulator/usbip/urb_session.h"
#include "fuzz_check.h"
#include "platform/little_endian.h"
#include "virtual_executor.h"

namespace {

using namespace kzq::simulator;
using namespace kzq::simulator::usbip;
using kzq::Bytes;

struct Asked {
    bool in = false;
    std::uint32_t length = 0;
    std::uint32_t unlinked = 0;  ///< 0: it is a transfer
};

Asked ask(std::uint32_t number, kzq::ByteView from, Bytes& stream) {
    const Asked asked{(from[0] & 1U) != 0, kzq::loadU16(from, 1) % 2049U,
                      from[0] >= 0xE0 ? from[3] % number + 1U : 0};
    Bytes header(urbHeaderLength);
    storeBig32(header, 0, asked.unlinked == 0 ? 1 : 2);
    storeBig32(header, 4, number);
    storeBig32(header, 12, asked.in ? 1 : 0);
    storeBig32(header, 16, from[0] >> 1U & 3U);
    storeBig32(header, 20, asked.unlinked == 0 ? from[3] : asked.unlinked);
    storeBig32(header, 24, asked.length);
    std::ranges::copy(from.subspan(4, 8), header.begin() + 40);
    header.resize(header.size() + (asked.unlinked == 0 && !asked.in ? asked.length : 0));
    stream.insert(stream.end(), header.begin(), header.end());
    return asked;
}

/// All that comes back.
Bytes answersTo(const Bytes& stream) {
    kzq::test::VirtualExecutor executor;
    PedalMemory memory;
    memory[3] = StoredLoop{Bytes(6000), 90, 3};
    SimulatedPedal pedal(executor, {memory});
    pedal.plugIn();
    std::array<int, 2> ends{};
    require(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0, "a pair of sockets");
    Connection there{kzq::Descriptor(ends[0])};
    const kzq::Descriptor here(ends[1]);
    std::thread session([&] { UrbSession(pedal, there).run(); });
    ::send(here.get(), stream.data(), stream.size(), MSG_NOSIGNAL);
    ::shutdown(here.get(), SHUT_WR);
    Bytes came;
    Bytes part(4096);
    while (const auto count = std::max<ssize_t>(::recv(here.get(), part.data(), part.size(), 0), 0)) {
        came.insert(came.end(), part.begin(), part.begin() + count);
    }
    session.join();
    return came;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    constexpr std::size_t each = 12;
    std::map<std::uint32_t, Asked> open;
    Bytes stream;
    kzq::ByteView rest(input, size);
    for (std::uint32_t number = 1; rest.size() >= each && number < 40; ++number, rest = rest.subspan(each)) {
        open[number] = ask(number, rest, stream);
    }
    stream.insert(stream.end(), rest.begin(),
                  rest.begin() + static_cast<std::ptrdiff_t>(std::min(rest.size(), each)));
    const auto came = answersTo(stream);
    std::size_t at = 0;
    while (came.size() - at >= urbHeaderLength) {
        const auto answer = kzq::ByteView(came).subspan(at);
        const auto found = open.extract(loadBig32(answer, 4));
        require(!found.empty(), "one answer to a request, and none to what is cancelled");
        const auto& asked = found.mapped();
        const auto moved = loadBig32(answer, 24);
        require(loadBig32(answer, 0) == (asked.unlinked == 0 ? 3 : 4) && moved <= asked.length,
                "it fits its request");
        const bool ended = static_cast<std::int32_t>(loadBig32(answer, 20)) == urbstatus::unlinked;
        require(asked.unlinked == 0 || open.erase(asked.unlinked) == (ended ? 1 : 0),
                "only what waits can be cancelled");
        at += urbHeaderLength + (asked.unlinked == 0 && asked.in ? moved : 0);
    }
    require(at == came.size(), "answers come whole");
    return 0;
}
