// The command table: what a correct program sends, and the replies.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "device/commands.h"
#include "device/replies.h"
#include "device/simulator/simulated_pedal.h"
#include "loops/facts.h"
#include "platform/little_endian.h"

namespace kzq::simulator {

namespace {

constexpr std::chrono::milliseconds erasePause{25};

struct Shape {
    std::uint8_t code;
    bool takesValue = false;
    bool takesIndex = false;
    std::uint16_t length = replyLength;
};

constexpr std::array<Shape, 13> shapes{{{command::importLoop, true, true},
                                        {command::exportLoop, true, true},
                                        {command::exportLength, true, true},
                                        {command::enterLoader},
                                        {command::announceTrailer},
                                        {command::openUpdate},
                                        {command::busy},
                                        {command::stage},
                                        {command::capacityAndVersion},
                                        {command::firstLoops, false, false, loopTableLength},
                                        {command::lastLoops, false, false, loopTableLength},
                                        {command::eraseLoop, true},
                                        {command::abandon}}};

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

    const auto* const shape = std::find_if(shapes.begin(), shapes.end(),
                                           [&](const Shape& s) { return s.code == setup.requestType; });
    if (shape == shapes.end()) {
        journal_.violation("the pedal has no command " + name);
        return;
    }
    const auto complain = [&](const char* field) { journal_.violation(name + " with a wrong " + field); };
    if (setup.request != pedalRequest) {
        complain("bRequest");
    }
    if (setup.length != shape->length) {
        complain("wLength");
    }
    if (!shape->takesValue && setup.value != 1) {
        complain("wValue");
    }
    if (!shape->takesIndex && setup.index != 0) {
        complain("wIndex");
    }
    inspectParameters(setup);
}

void SimulatedPedal::inspectParameters(const SetupPacket& setup) {
    const std::uint8_t code = setup.requestType;
    const std::string name = commandName(code);
    if (code == command::exportLength) {
        if (setup.value == 0 && setup.index == 0) {
            journal_.violation("E3 announces no audio");
        }
        return;
    }
    const bool hasAddress =
        code == command::importLoop || code == command::exportLoop || code == command::eraseLoop;
    if (!hasAddress) {
        return;
    }
    if (setup.value >= loopSlots) {
        journal_.violation(name + " with the address " + std::to_string(setup.value));
        return;
    }
    if (code == command::importLoop && (setup.index == 0 || setup.index > 255)) {
        journal_.violation("E1 with the channel " + std::to_string(setup.index));
    }
    const unsigned occupied = loops_.at(setup.value) ? 1 : 0;
    if (code == command::exportLoop && setup.index != occupied) {
        journal_.violation("E2 with the flag " + std::to_string(setup.index) + " for a slot that " +
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
        case command::importLoop:
            return answer(startImport(setup.value, setup.index));
        case command::exportLoop:
            return answer(announceExport(setup.value));
        case command::exportLength:
            return answer(announceLength(setup.value | static_cast<std::size_t>(setup.index) << 16));
        case command::enterLoader:
            return answer(enterLoader());
        case command::announceTrailer:
            return answer(loader_.announceTrailer(executor_.now()));
        case command::openUpdate:
            if (!inLoader()) {
                journal_.violation("E7 to a pedal that runs its firmware");
            }
            return answer(inLoader());
        case command::busy:
            return stateReply(!busy_);
        case command::stage:
            return stateReply(true);
        case command::capacityAndVersion:
            return capacityReply();
        case command::firstLoops:
            return loopTable(0);
        case command::lastLoops:
            return loopTable(loopSlots / 2);
        case command::eraseLoop:
            return answer(eraseLoop(setup.value));
        case command::abandon:
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

SimulatedPedal::ReplyBody SimulatedPedal::loopTable(std::size_t first) const {
    ReplyBody body;
    body.length = loopTableLength;
    if (inLoader()) {
        return body;
    }
    for (std::size_t i = 0; i < loopSlots / 2; ++i) {
        const LoopPointer& loop = loops_.at(first + i);
        if (!loop) {
            continue;
        }
        const auto record = std::span(body.bytes).subspan(i * loopRecordLength, loopRecordLength);
        storeU32(record, 0, static_cast<std::uint32_t>(loop->audio.size() / frameBytes));
        record[4] = loop->tempo;
        record[5] = loop->channel;
    }
    return body;
}

bool SimulatedPedal::enterLoader() {
    journal_.excuse(false);
    if (inLoader()) {
        loader_.prepare(executor_.now());
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
