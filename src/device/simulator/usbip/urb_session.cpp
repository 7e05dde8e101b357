#include "device/simulator/usbip/urb_session.h"

#include <array>
#include <utility>

#include "device/simulator/usbip/connection.h"
#include "platform/little_endian.h"
#include "platform/log.h"

namespace kzq::simulator::usbip {

namespace {

SetupPacket setupOf(const UrbRequest& request) {
    return {request.setup[0], request.setup[1], loadU16(request.setup, 2), loadU16(request.setup, 4),
            loadU16(request.setup, 6)};
}

std::int32_t statusOf(const Transfer& transfer, TransferResult result) {
    switch (result.status) {
        case TransferStatus::stalled:
            return urbstatus::stalled;
        case TransferStatus::overrun:
            return urbstatus::overflow;
        default:
            break;
    }
    const bool tooShort = transfer.shortIsError && result.transferred < transfer.data.size();
    return tooShort ? urbstatus::cameShort : urbstatus::ok;
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
    if (request.length > longestTransfer) {
        log(LogCategory::simulator, "USB/IP: a transfer that is too long");
        return false;
    }
    Bytes data(request.length);
    if (!request.in && !connection_.read(data)) {
        return false;
    }
    return transfers_.submit({.number = request.number,
                              .endpoint = request.endpoint,
                              .in = request.in,
                              .setup = setupOf(request),
                              .data = std::move(data),
                              .shortIsError = request.in && (request.flags & shortIsError) != 0});
}

bool UrbSession::unlink(const UrbRequest& request) {
    const bool waited = transfers_.cancel(request.unlinked).has_value();
    return connection_.write(encode(UrbReply{.command = UrbCommand::unlinkReply,
                                             .number = request.number,
                                             .status = waited ? urbstatus::unlinked : urbstatus::ok}));
}

bool UrbSession::reply(const Transfer& transfer, TransferResult result) {
    const auto length = static_cast<std::uint32_t>(result.transferred);
    const auto header = encode(UrbReply{.number = static_cast<std::uint32_t>(transfer.number),
                                        .status = statusOf(transfer, result),
                                        .length = length});
    Bytes message(header.begin(), header.end());
    if (transfer.in) {
        message.insert(message.end(), transfer.data.begin(), transfer.data.begin() + length);
    }
    return connection_.write(message);
}

}  // namespace kzq::simulator::usbip
