#include "device/simulator/usbip/transfer_queue.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

#include "device/wire.h"
#include "platform/log.h"

namespace kzq::simulator::usbip {

namespace {

constexpr std::size_t mostWaiting = 1024;
constexpr std::size_t mostBytesWaiting = 4 * longestTransfer;

constexpr std::uint32_t controlEndpoint = 0;
constexpr std::uint32_t bulkInEndpoint = pedalBulkIn & 0x0FU;
constexpr std::uint32_t bulkOutEndpoint = pedalBulkOut;

using Pipe = std::pair<std::uint32_t, bool>;

Pipe pipeOf(const Transfer& transfer) {
    return {transfer.endpoint, transfer.endpoint != controlEndpoint && transfer.in};
}

}  // namespace

bool TransferQueue::submit(Transfer transfer) {
    const auto bytes =
        std::accumulate(waiting_.begin(), waiting_.end(), transfer.data.size(),
                        [](std::size_t sum, const Transfer& waiting) { return sum + waiting.data.size(); });
    if (waiting_.size() >= mostWaiting || bytes > mostBytesWaiting) {
        log(LogCategory::simulator, "USB: too many transfers");
        return false;
    }
    waiting_.push_back(std::move(transfer));
    return reconsider();
}

std::optional<Transfer> TransferQueue::cancel(std::uint64_t number) {
    const auto found = std::ranges::find(waiting_, number, &Transfer::number);
    if (found == waiting_.end()) {
        return std::nullopt;
    }
    Transfer transfer = std::move(*found);
    waiting_.erase(found);
    return transfer;
}

// An earlier read may have been waiting for this command, so all are tried again.
bool TransferQueue::reconsider() {
    bool again = true;
    while (again) {
        again = false;
        std::set<Pipe> occupied;
        for (auto next = waiting_.begin(); next != waiting_.end();) {
            const Outcome outcome = occupied.contains(pipeOf(*next)) ? Outcome::waits : attempt(*next);
            if (outcome == Outcome::lost) {
                return false;
            }
            if (outcome == Outcome::waits) {
                occupied.insert(pipeOf(*next));
                ++next;
                continue;
            }
            again = again || next != waiting_.begin();
            next = waiting_.erase(next);
        }
    }
    return true;
}

TransferQueue::Outcome TransferQueue::attempt(Transfer& transfer) {
    TransferResult result = carryOut(transfer);
    if (result.status == TransferStatus::pending) {
        return Outcome::waits;
    }
    result.transferred = std::min(result.transferred, transfer.data.size());
    return result.status != TransferStatus::gone && answer_(transfer, result) ? Outcome::ended
                                                                              : Outcome::lost;
}

TransferResult TransferQueue::carryOut(Transfer& transfer) {
    if (transfer.endpoint == controlEndpoint) {
        return control(transfer);
    }
    if (transfer.in && transfer.endpoint == bulkInEndpoint) {
        return pedal_.bulkIn(transfer.data);
    }
    if (!transfer.in && transfer.endpoint == bulkOutEndpoint) {
        return pedal_.bulkOut(transfer.data);
    }
    return {TransferStatus::stalled, 0};
}

TransferResult TransferQueue::control(Transfer& transfer) {
    if (!StandardRequests::concern(transfer.setup)) {
        return pedal_.control(transfer.setup, transfer.data);
    }
    const auto answer = standard_.answer(transfer.setup);
    if (!answer) {
        return {TransferStatus::stalled, 0};
    }
    if (StandardRequests::restarts(transfer.setup)) {
        pedal_.reset();
    }
    const std::size_t length = std::min(answer->size(), transfer.data.size());
    std::copy_n(answer->begin(), length, transfer.data.begin());
    return {TransferStatus::done, transfer.in ? length : transfer.data.size()};
}

}  // namespace kzq::simulator::usbip
