#include <algorithm>
#include <limits>
#include <utility>

#include "device/kzq7306.h"
#include "device/replies.h"

namespace kzq {

KZQ7306::CallOut::CallOut(KZQ7306& link, std::size_t bytes) : link_(link) {
    constexpr std::size_t slowest = 65'536;  // no pedal is slower, in bytes a second
    // There is one for each piece of a loop, so no more order than the watch needs.
    link_.callAllowance_.store(std::chrono::seconds(bytes / slowest), std::memory_order_relaxed);
    link_.callUnderWay_.store(++link_.calls_, std::memory_order_release);
}

KZQ7306::Answer KZQ7306::ask(const wire::Command& command, std::uint16_t value, std::uint16_t index) {
    auto answer = exchange(command, pedalRequest, value, index);
    if (!answer.reply) {
        return answer;
    }
    answer.accepted = !(command.refusable && refuses(*answer.reply));
    if (!answer.accepted) {
        setTrouble(answer.trouble());
    } else if (command.refusable && !answer.whole) {
        fail(Trouble::Kind::noAnswer);
    }
    return answer;
}

KZQ7306::Answer KZQ7306::exchange(const wire::Command& command, std::uint8_t request, std::uint16_t value,
                                  std::uint16_t index) {
    const std::lock_guard guard(*lock_);
    const auto handle = core();
    if (!handle) {
        fail(Trouble::Kind::noPedal);
        return {};
    }
    Answer answer{Reply(command.reply)};
    const int came = counted(
        command.reply, [&] { return handle->control(command.code, request, value, index, *answer.reply); });
    answer.whole = came >= int{command.needs};
    answer.hostRefusal = handle->obstacle();
    return answer;
}

std::optional<KZQ7306::Reply> KZQ7306::control(std::uint8_t code, std::uint8_t request, std::uint16_t value,
                                               std::uint16_t index, std::uint16_t length) {
    return exchange({.code = code, .reply = length}, request, value, index).reply;
}

std::optional<KZQ7306::Reply> KZQ7306::control(std::uint8_t code, std::uint8_t request, std::uint16_t value,
                                               std::uint16_t index) {
    const std::lock_guard guard(*lock_);
    return control(code, request, value, index, replyLength);
}

std::optional<KZQ7306::Reply> KZQ7306::control(std::uint8_t code, std::uint16_t value, std::uint16_t index) {
    const std::lock_guard guard(*lock_);
    return control(code, pedalRequest, value, index, replyLength);
}

std::optional<KZQ7306::Reply> KZQ7306::control(std::uint8_t code) {
    const std::lock_guard guard(*lock_);
    return control(code, pedalRequest, 1, 0, replyLength);
}

std::optional<std::vector<std::uint8_t>> KZQ7306::read(std::int32_t length) {
    const std::lock_guard guard(*lock_);
    if (length < 1) {
        return std::nullopt;
    }
    const auto handle = core();
    if (!handle) {
        fail(Trouble::Kind::noPedal);
        return std::nullopt;
    }
    Bytes bytes(static_cast<std::size_t>(length));
    return kept(
        Result<Bytes>(receive(*handle, bytes, bytes.size()).map([&bytes] { return std::move(bytes); })));
}

Result<void> KZQ7306::receive(UsbHandle& handle, std::span<std::uint8_t> into, std::size_t due) {
    const CallOut out(*this, into.size());  // one call, however often it brings nothing
    for (std::size_t received = 0; received < into.size();) {
        std::size_t transferred = 0;
        const auto rest = into.subspan(received);
        const auto result = handle.bulkIn(pedalBulkIn, rest, due - received, transferred);
        if (result != usbSuccess || transferred > rest.size()) {
            return Trouble{Trouble::Kind::transferFailed};
        }
        received += transferred;
    }
    return {};
}

bool KZQ7306::write(std::span<const std::uint8_t> bytes) {
    const std::lock_guard guard(*lock_);
    Gone gone;
    return kept(send(bytes, gone)).has_value();
}

Result<std::size_t> KZQ7306::send(ByteView bytes, Gone& gone) {
    if (bytes.empty() || bytes.size() > std::numeric_limits<std::int32_t>::max()) {
        return Trouble{Trouble::Kind::badRequest};
    }
    const auto handle = core();
    if (!handle) {
        return Trouble{Trouble::Kind::noPedal};
    }
    const CallOut out(*this, bytes.size());
    while (gone.before < bytes.size()) {
        const auto rest = bytes.subspan(gone.before);
        const auto result = handle->bulkOut(pedalBulkOut, rest, gone.now);
        const auto transferred = gone.now.exchange(0);
        gone.before += std::min(transferred, rest.size());
        if (result != usbSuccess || transferred > rest.size()) {
            return Trouble{Trouble::Kind::transferFailed};
        }
    }
    return bytes.size();
}

void KZQ7306::abortBulkTransfer(std::uint8_t /*endpoint*/, bool /*clearPipeStall*/) {
    const std::lock_guard guard(*lock_);
    if (const auto handle = core()) {
        handle->reset();
    }
}

void KZQ7306::interrupt() const {
    if (const auto handle = core()) {
        handle->reset();
    }
}

}  // namespace kzq
