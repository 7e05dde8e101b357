#include "device/simulator/simulated_pedal.h"

#include <memory>
#include <utility>

#include "device/simulator/pedal_life.h"
#include "loops/facts.h"
#include "platform/log.h"

namespace kzq::simulator {

namespace {

WireEvent bulkEvent(WireEvent::Kind kind, std::size_t length, Executor::TimePoint now) {
    WireEvent event;
    event.kind = kind;
    event.length = static_cast<std::uint32_t>(length);
    event.time = now;
    return event;
}

Fault::Where place(WireEvent::Kind kind) {
    switch (kind) {
        case WireEvent::Kind::bulkIn:
            return Fault::Where::bulkIn;
        case WireEvent::Kind::bulkOut:
            return Fault::Where::bulkOut;
        default:
            return Fault::Where::control;
    }
}

/// What the host is told of a bulk transfer of `asked` bytes.
TransferResult counted(TransferResult result, std::size_t asked, std::optional<FaultKind> fault) {
    constexpr std::size_t beyond = 64;
    return fault == FaultKind::overrun && result.status == TransferStatus::done
               ? TransferResult{TransferStatus::overrun, asked + beyond}
               : result;
}

}  // namespace

SimulatedPedal::SimulatedPedal(Executor& executor, Start start)
    : executor_(executor), version_(std::move(start.version)), stage_(start.stage) {
    life_ = std::make_shared<Life>();
    life_->pedal = this;
    for (std::size_t i = 0; i < loopSlots; ++i) {
        if (start.memory.at(i)) {
            loops_.at(i) = std::make_shared<StoredLoop>(std::move(*start.memory.at(i)));
        }
    }
}

SimulatedPedal::~SimulatedPedal() {
    const std::lock_guard guard(life_->mutex);
    life_->pedal = nullptr;
}

TransferResult SimulatedPedal::control(const SetupPacket& setup, std::span<std::uint8_t> reply) {
    Lock lock(mutex_);
    if (!onBus_) {
        return {TransferStatus::gone, 0};
    }
    const WireEvent event{
        WireEvent::Kind::control, setup.requestType, setup.value, setup.index, setup.length, 0,
        executor_.now()};
    const bool fresh = journal_.begin(event);
    if (fresh) {
        inspect(setup);
    }
    return carryOut(lock, event, fresh, [&](auto fault) { return command(setup, reply, fault); });
}

TransferResult SimulatedPedal::bulkIn(std::span<std::uint8_t> into) {
    Lock lock(mutex_);
    if (!onBus_) {
        return {TransferStatus::gone, 0};
    }
    const WireEvent event = bulkEvent(WireEvent::Kind::bulkIn, into.size(), executor_.now());
    const bool fresh = journal_.begin(event);
    return carryOut(lock, event, fresh, [&](auto fault) {
        const auto wanted = fault == FaultKind::shorten ? into.first(into.size() / 2) : into;
        if (import_) {
            inspectPiece(into.size(), import_->total - import_->sent);
        }
        const auto sent = sendAudio(wanted);
        if (fault == FaultKind::alter && sent.transferred > 0) {
            into.front() ^= 1U;
        }
        return counted(sent, into.size(), fault);
    });
}

TransferResult SimulatedPedal::bulkOut(std::span<const std::uint8_t> from) {
    Lock lock(mutex_);
    if (!onBus_) {
        return {TransferStatus::gone, 0};
    }
    const WireEvent event = bulkEvent(WireEvent::Kind::bulkOut, from.size(), executor_.now());
    const bool fresh = journal_.begin(event);
    return carryOut(lock, event, fresh, [&](auto fault) {
        Bytes altered;
        if (fault == FaultKind::alter && !from.empty()) {
            altered.assign(from.begin(), from.end());
            altered.front() ^= 1U;
        }
        return counted(receive(altered.empty() ? from : altered, fault), from.size(), fault);
    });
}

void SimulatedPedal::reset() {
    Lock lock(mutex_);
    if (!onBus_) {
        return;
    }
    dropStreams();
    loader_.drop();
    journal_.note(WireEvent::Kind::reset, executor_.now());
    journal_.excuse(std::exchange(silent_, false) &&
                    silentCommand_);  // a command without an answer reads like a consent
    news_.push_back({BusChange::reset, 0, nullptr});
    announceNews(lock);
}

TransferResult SimulatedPedal::carryOut(Lock& lock, const WireEvent& event, bool fresh,
                                        const Transfer& transfer) {
    std::optional<FaultKind> fault;
    if (fresh && !silent_) {
        fault = faults_.next(place(event.kind), event.code);
    }
    if (fault == FaultKind::silence) {
        silent_ = true;
        silentCommand_ = event.kind == WireEvent::Kind::control;
        log(LogCategory::simulator, "the pedal is silent");
    }

    TransferResult result{TransferStatus::pending, 0};
    if (fault == FaultKind::stall || fault == FaultKind::unplug) {
        result = suffer(*fault, event.kind);
    } else if (!silent_) {
        result = transfer(fault);
    }
    const bool failed = result.status != TransferStatus::done && result.status != TransferStatus::pending;
    streamExcused_ = streamExcused_ || failed || fault == FaultKind::refuse;
    journal_.end(result.transferred, result.status == TransferStatus::pending);
    announceNews(lock);
    return result;
}

void SimulatedPedal::excuseStream() {
    const Lock lock(mutex_);
    streamExcused_ = true;
}

TransferResult SimulatedPedal::suffer(FaultKind fault, WireEvent::Kind kind) {
    if (fault == FaultKind::unplug) {
        leaveBus();
        return {TransferStatus::gone, 0};
    }
    if (kind == WireEvent::Kind::control) {
        journal_.excuse(true);
    }
    return {TransferStatus::stalled, 0};
}

void SimulatedPedal::announceNews(Lock& lock) {
    if (news_.empty()) {
        return;
    }
    const std::vector<News> news = std::exchange(news_, {});
    const Listener listener = listener_;
    const MemoryListener memoryListener = memoryListener_;
    lock.unlock();
    for (const News& item : news) {
        if (item.bus && listener) {
            listener(*item.bus);
        }
        if (!item.bus && memoryListener) {
            memoryListener(item.address, item.loop.get());
        }
    }
}

}  // namespace kzq::simulator
