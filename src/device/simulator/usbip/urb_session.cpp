#include "device/simulator/usbip/urb_session.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "device/simulator/usbip/connection.h"
#include "device/wire.h"
#include "platform/little_endian.h"
#include "platform/log.h"

namespace kzq::simulator::usbip {

namespace {

/// Linux makes no larger transfers.
constexpr std::uint32_t longestTransfer = 16U << 20U;
constexpr std::size_t mostWaiting = 1024;

constexpr std::uint32_t controlEndpoint = 0;
constexpr std::uint32_t bulkInEndpoint = pedalBulkIn & 0x0FU;
constexpr std::uint32_t bulkOutEndpoint = pedalBulkOut;

using Pipe = std::pair<std::uint32_t, bool>;

Pipe pipeOf(const UrbRequest& request) {
    return {request.endpoint, request.endpoint != controlEndpoint && request.in};
}

SetupPacket setupOf(const UrbRequest& request) {
    return {request.setup[0], request.setup[1], loadU16(request.setup, 2), loadU16(request.setup, 4),
            loadU16(request.setup, 6)};
}

std::int32_t statusOf(const UrbRequest& request, TransferResult result) {
    switch (result.status) {
        case TransferStatus::stalled:
            return urbstatus::stalled;
        case TransferStatus::overrun:
            return urbstatus::overflow;
        default:
            break;
    }
    const bool tooShort = request.in && (request.flags & shortIsError) != 0;
    return tooShort && result.transferred < request.length ? urbstatus::cameShort : urbstatus::ok;
}

}  // namespace

void UrbSession::run() {
    while (step()) {
    }
    connection_.hangUp();
}

bool UrbSession::step() {
    std::array<std::uint8_t, urbHeaderLength> header{};
    if (!connection_.read(header)) {
        return false;
    }
    const UrbRequest request = decodeUrb(header);
    switch (request.command) {
        case UrbCommand::submit:
            return submit(request);
        case UrbCommand::unlink:
            return unlink(request);
        default:
            log(LogCategory::simulator, "USB/IP: an invalid message");
            return false;
    }
}

bool UrbSession::submit(const UrbRequest& request) {
    if (request.length > longestTransfer || waiting_.size() >= mostWaiting) {
        log(LogCategory::simulator, "USB/IP: a transfer that is too long, or too many transfers");
        return false;
    }
    Bytes data(request.length);
    if (!request.in && !connection_.read(data)) {
        return false;
    }
    waiting_.push_back({request, std::move(data)});
    return serveWaiting();
}

bool UrbSession::unlink(const UrbRequest& request) {
    const auto found = std::ranges::find_if(
        waiting_, [&](const Waiting& waiting) { return waiting.request.number == request.unlinked; });
    const bool waited = found != waiting_.end();
    if (waited) {
        waiting_.erase(found);
    }
    return connection_.write(encode(UrbReply{.command = UrbCommand::unlinkReply,
                                             .number = request.number,
                                             .status = waited ? urbstatus::unlinked : urbstatus::ok}));
}

// An earlier read may have been waiting for this command, so all are tried again.
bool UrbSession::serveWaiting() {
    bool again = true;
    while (again) {
        again = false;
        std::set<Pipe> occupied;
        for (auto next = waiting_.begin(); next != waiting_.end();) {
            const Outcome outcome =
                occupied.contains(pipeOf(next->request)) ? Outcome::waits : attempt(*next);
            if (outcome == Outcome::lost) {
                return false;
            }
            if (outcome == Outcome::waits) {
                occupied.insert(pipeOf(next->request));
                ++next;
                continue;
            }
            again = again || next != waiting_.begin();
            next = waiting_.erase(next);
        }
    }
    return true;
}

UrbSession::Outcome UrbSession::attempt(Waiting& waiting) {
    TransferResult result = transfer(waiting);
    if (result.status == TransferStatus::pending) {
        return Outcome::waits;
    }
    result.transferred = std::min(result.transferred, waiting.data.size());
    return result.status != TransferStatus::gone && reply(waiting, result) ? Outcome::ended : Outcome::lost;
}

TransferResult UrbSession::transfer(Waiting& waiting) {
    const UrbRequest& request = waiting.request;
    if (request.endpoint == controlEndpoint) {
        return control(waiting);
    }
    if (request.in && request.endpoint == bulkInEndpoint) {
        return pedal_.bulkIn(waiting.data);
    }
    if (!request.in && request.endpoint == bulkOutEndpoint) {
        return pedal_.bulkOut(waiting.data);
    }
    return {TransferStatus::stalled, 0};
}

TransferResult UrbSession::control(Waiting& waiting) {
    const SetupPacket setup = setupOf(waiting.request);
    if (!StandardRequests::concern(setup)) {
        return pedal_.control(setup, waiting.data);
    }
    const auto answer = standard_.answer(setup);
    if (!answer) {
        return {TransferStatus::stalled, 0};
    }
    if (StandardRequests::restarts(setup)) {
        pedal_.reset();
    }
    const std::size_t length = std::min(answer->size(), waiting.data.size());
    std::copy_n(answer->begin(), length, waiting.data.begin());
    return {TransferStatus::done, waiting.request.in ? length : waiting.data.size()};
}

bool UrbSession::reply(const Waiting& waiting, TransferResult result) {
    const auto length = static_cast<std::uint32_t>(result.transferred);
    const auto header = encode(UrbReply{
        .number = waiting.request.number, .status = statusOf(waiting.request, result), .length = length});
    Bytes message(header.begin(), header.end());
    if (waiting.request.in) {
        message.insert(message.end(), waiting.data.begin(), waiting.data.begin() + length);
    }
    return connection_.write(message);
}

}  // namespace kzq::simulator::usbip
