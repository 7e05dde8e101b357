#include "device/simulator/gadget/gadget_pipes.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <system_error>

#include "device/simulator/usbip/descriptors.h"
#include "device/wire.h"
#include "platform/little_endian.h"
#include "platform/log.h"

namespace kzq::simulator {

namespace {

constexpr int wakingSignal = SIGURG;  // ignored unless there is a handler

/// A signal ends the kernel's wait only if it has a handler.
void catchWakingSignal() {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    ::sigaction(wakingSignal, &action, nullptr);
}

/// The driver of each device port names these files in its own way: "ep1in-bulk", "ep1in".
Descriptor openEndpoint(const std::filesystem::path& folder, const std::string& start) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().filename().string().starts_with(start)) {
            return Descriptor(::open(entry->path().c_str(), O_RDWR | O_CLOEXEC));
        }
    }
    errno = ENOENT;
    return {};
}

/// A mark of the format, and the endpoint's descriptor for either speed.
bool configure(const Descriptor& file, std::uint8_t address) {
    constexpr std::uint8_t length = 7;
    constexpr std::uint8_t type = 5;
    constexpr std::uint8_t bulk = 2;
    const Bytes words{1, 0, 0,      0,    length,  type, address, bulk, 64,
                      0, 0, length, type, address, bulk, 0,       2,    0};
    return ::write(file.get(), words.data(), words.size()) == static_cast<ssize_t>(words.size());
}

}  // namespace

GadgetPipes::GadgetPipes(SimulatedPedal& pedal, const std::filesystem::path& folder, std::size_t packet)
    : pedal_(pedal),
      packet_(packet),
      in_(openEndpoint(folder, "ep1in")),
      out_(openEndpoint(folder, "ep2out")) {
    if (!in_ || !out_ || !configure(in_, pedalBulkIn) || !configure(out_, pedalBulkOut)) {
        log(LogCategory::simulator,
            "gadget: the endpoints cannot be used: " + std::generic_category().message(errno));
        return;
    }
    catchWakingSignal();
    run(sending_, &GadgetPipes::send);
    run(receiving_, &GadgetPipes::receive);
}

void GadgetPipes::run(std::thread& thread, void (GadgetPipes::*work)()) {
    ++running_;
    thread = std::thread([this, work] {
        (this->*work)();
        --running_;
    });
}

GadgetPipes::~GadgetPipes() {
    over_ = true;
    reconsider();
    while (running_ > 0) {  // again and again, as a signal before the wait ends nothing
        for (auto* const thread : {&sending_, &receiving_}) {
            if (thread->joinable()) {
                ::pthread_kill(thread->native_handle(), wakingSignal);
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    for (auto* const thread : {&sending_, &receiving_}) {
        if (thread->joinable()) {
            thread->join();
        }
    }
}

void GadgetPipes::reconsider() {
    const std::lock_guard lock(mutex_);
    ++changes_;
    changed_.notify_all();
}

void GadgetPipes::drain() {
    constexpr std::chrono::milliseconds longest{200};  // between two packets that are there
    bool comes = true;
    while (comes && pedal_.awaitsAudio()) {
        std::unique_lock lock(mutex_);
        comes = changed_.wait_for(lock, longest, [this, before = changes_] { return changes_ != before; });
    }
}

/// Waits until `ready()`, which is asked at once and after every change; false at the end.
bool GadgetPipes::waitFor(const std::function<bool()>& ready) {
    std::unique_lock lock(mutex_);
    while (!over_) {
        const auto before = changes_;
        lock.unlock();
        if (ready()) {
            return true;
        }
        lock.lock();
        changed_.wait(lock, [&] { return over_ || changes_ != before; });
    }
    return false;
}

void GadgetPipes::send() {
    Bytes piece(transferPiece);
    TransferResult result;
    const auto hasPiece = [&] {
        const auto due = std::min(pedal_.bytesToSend(), piece.size());
        result =
            due > 0 ? pedal_.bulkIn(std::span(piece).first(due)) : TransferResult{TransferStatus::pending, 0};
        return result.status != TransferStatus::pending;
    };
    while (waitFor(hasPiece) && result.status != TransferStatus::gone) {
        // The opposite of what is due halts the pipe.
        const auto moved = result.status == TransferStatus::stalled
                               ? ::read(in_.get(), piece.data(), 0)
                               : ::write(in_.get(), piece.data(), std::min(result.transferred, piece.size()));
        if (moved < 0 && errno != EINTR && errno != EBADMSG) {
            return;
        }
    }
}

void GadgetPipes::receive() {
    Bytes bytes(packet_);  // as nothing shows where a transfer of whole packets ends
    while (!over_) {
        const auto came = ::read(out_.get(), bytes.data(), bytes.size());
        if (came < 0 && errno != EINTR) {
            return;
        }
        if (came <= 0) {
            continue;
        }
        TransferResult result;
        const auto taken = [&] {
            result = pedal_.bulkOut(ByteView(bytes).first(static_cast<std::size_t>(came)));
            return result.status != TransferStatus::pending;
        };
        if (waitFor(taken) && result.status == TransferStatus::stalled) {
            static_cast<void>(::write(out_.get(), bytes.data(), 0));
        }
        reconsider();
    }
}

}  // namespace kzq::simulator
