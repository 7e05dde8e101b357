// The command table: what a correct program sends, and the replies.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "device/simulator/simulated_pedal.h"
#include "device/wire.h"
#include "loops/facts.h"
#include "platform/little_endian.h"

namespace kzq::simulator {

namespace {

using wire::Word;

constexpr std::chrono::milliseconds erasePause{25};

std::string commandName(std::uint8_t code) {
    std::array<char, 3> text{};
    std::snprintf(text.data(), text.size(), "%02X", static_cast<unsigned>(code));
    return text.data();
}

}  // namespace

void SimulatedPedal::inspect(const SetupPacket& setup) {
    const std::string name = commandName(setup.requestType);
    if (erased_ && executor_.now() - *erased_ < erasePause) {
        journal_.violation(name + " less than 25 ms after an erase");
    }
    inspectMoment(setup.requestType, name);

    const auto* const command = wire::find(setup.requestType);
    if (command == nullptr) {
        journal_.violation("the pedal has no command " + name);
        return;
    }
    const auto complain = [&](const char* field) { journal_.violation(name + " with a wrong " + field); };
    if (setup.request != pedalRequest) {
        complain("bRequest");
    }
    if (setup.length != command->reply) {
        complain("wLength");
    }
    if (command->value == Word::one && setup.value != 1) {
        complain("wValue");
    }
    if (command->index == Word::zero && setup.index != 0) {
        complain("wIndex");
    }
    inspectParameters(setup, *command);
}

/// Once a loop or an image has begun, it comes to its end, or is abandoned, before anything else.
void SimulatedPedal::inspectMoment(std::uint8_t code, const std::string& name) {
    if (streamExcused_) {
        return;
    }
    if ((import_ || expectsAudio()) && code != wire::abandon.code) {
        journal_.violation(name + " while audio is due");
    }
    if (!loader_.admits(code)) {
        journal_.violation(name + " in the middle of an update");
    }
}

void SimulatedPedal::inspectParameters(const SetupPacket& setup, const wire::Command& command) {
    const std::string name = commandName(command.code);
    if (command.value == Word::lowLength && setup.value == 0 && setup.index == 0) {
        journal_.violation(name + " announces no audio");
    }
    if (command.value != Word::address) {
        return;
    }
    if (setup.value >= loopSlots) {
        journal_.violation(name + " with the address " + std::to_string(setup.value));
        return;
    }
    if (command.index == Word::channel && (setup.index == 0 || setup.index > 255)) {
        journal_.violation(name + " with the channel " + std::to_string(setup.index));
    }
    if (inLoader()) {
        journal_.violation(name + " to a pedal in its loader");
        return;
    }
    const unsigned occupied = loops_.at(setup.value) ? 1 : 0;
    if (command.index == Word::occupied && setup.index != occupied) {
        journal_.violation(name + " with the flag " + std::to_string(setup.index) + " for a slot that " +
                           (occupied ? "holds a loop" : "is empty"));
    }
}

TransferResult SimulatedPedal::command(const SetupPacket& setup, std::span<std::uint8_t> reply,
                                       std::optional<FaultKind> fault) {
    const auto body = fault == FaultKind::refuse ? answer(false) : execute(setup);
    if (!body) {
        return {TransferStatus::stalled, 0};
    }
    std::size_t length = std::min(body->length, reply.size());
    if (fault == FaultKind::shorten) {
        length /= 2;
    }
    std::copy_n(body->bytes.begin(), length, reply.begin());
    return {TransferStatus::done, length};
}

std::optional<SimulatedPedal::ReplyBody> SimulatedPedal::execute(const SetupPacket& setup) {
    switch (setup.requestType) {
        case wire::importLoop.code:
            return answer(startImport(setup.value, setup.index));
        case wire::exportLoop.code:
            return answer(announceExport(setup.value));
        case wire::exportLength.code:
            return answer(announceLength(setup.value | static_cast<std::size_t>(setup.index) << 16));
        case wire::enterLoader.code:
            return answer(enterLoader());
        case wire::announceTrailer.code:
            return answer(loader_.announceTrailer(executor_.now()));
        case wire::openUpdate.code:
            if (!inLoader()) {
                journal_.violation("E7 to a pedal that runs its firmware");
            }
            return answer(inLoader());
        case wire::busy.code:
            return stateReply(!busy_);
        case wire::stage.code:
            return stateReply(true);
        case wire::capacityAndVersion.code:
            return capacityReply();
        case wire::firstLoops.code:
            return loopTable(0);
        case wire::lastLoops.code:
            return loopTable(recordsInReply);
        case wire::eraseLoop.code:
            return answer(eraseLoop(setup.value));
        case wire::abandon.code:
            dropStreams();
            return answer(true);
        default:
            return std::nullopt;
    }
}

SimulatedPedal::ReplyBody SimulatedPedal::answer(bool accepted) {
    ReplyBody body;
    body.bytes[answerOffset] = accepted ? 'Y' : refusal;
    return body;
}

SimulatedPedal::ReplyBody SimulatedPedal::stateReply(bool accepted) const {
    ReplyBody body = answer(accepted);
    body.bytes[stageOffset] = static_cast<std::uint8_t>(stage_);
    body.bytes[sequenceOffset] = sequence_;
    return body;
}

SimulatedPedal::ReplyBody SimulatedPedal::capacityReply() const {
    ReplyBody body;
    const std::uint64_t used = std::min<std::uint64_t>(usedFrames(), capacityFrames);
    storeU32(body.bytes, 0, capacityFrames - static_cast<std::uint32_t>(used));
    for (std::size_t i = 0; i < 4; ++i) {
        body.bytes.at(4 + i) = i < version_.size() ? static_cast<std::uint8_t>(version_[i]) : ' ';
    }
    return body;
}

SimulatedPedal::ReplyBody SimulatedPedal::loopTable(std::size_t first) {
    ReplyBody body;
    body.length = wire::tableLength;
    if (inLoader()) {
        return body;
    }
    for (std::size_t i = 0; i < recordsInReply; ++i) {
        const LoopPointer& loop = told_.at(first + i) = loops_.at(first + i);
        if (!loop) {
            continue;
        }
        const auto record = std::span(body.bytes).subspan(i * loopRecordLength, loopRecordLength);
        storeU32(record, 0, static_cast<std::uint32_t>(loop->size() / frameBytes));
        record[4] = loop->tempo;
        record[5] = loop->channel;
    }
    return body;
}

bool SimulatedPedal::enterLoader() {
    journal_.excuse(false);
    if (inLoader()) {
        loader_.prepare(executor_.now());
        streamExcused_ = false;
    } else {
        restartInto(stageFactoryBlank);
    }
    return true;
}

bool SimulatedPedal::eraseLoop(std::size_t address) {
    if (inLoader() || address >= loopSlots) {
        return false;
    }
    dropStreams();
    changeLoop(address, nullptr);
    erased_ = executor_.now();
    return true;
}

}  // namespace kzq::simulator
