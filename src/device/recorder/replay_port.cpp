#include "device/recorder/replay_port.h"

#include <set>
#include <utility>

#include "device/recorder/call_words.h"
#include "device/recorder/replay_handle.h"
#include "device/recorder/replay_player.h"

namespace kzq::recorder {

namespace {

using Kind = RecordedEvent::Kind;

struct ReplayedDevice : UsbDevice {
    explicit ReplayedDevice(unsigned theNumber) : number(theNumber) {}
    unsigned number;
};

/// When the last owner releases a device depends on threads that nobody waits for.
Recording withoutClosing(Recording recording) {
    std::set<unsigned> numbers;
    std::erase_if(recording.events, [&numbers](const RecordedEvent& event) {
        if (event.kind == Kind::call && event.words.starts_with("close ")) {
            numbers.insert(event.number);
        }
        return (event.kind == Kind::call || event.kind == Kind::result) && numbers.contains(event.number);
    });
    return recording;
}

}  // namespace

ReplayPort::ReplayPort(Executor& executor, Recording recording, Listener differs)
    : player_(std::make_shared<Player>(executor, std::move(recording), std::move(differs))) {}

UsbResult ReplayPort::initialize() {
    return static_cast<UsbResult>(player_->ask(words::initialize()).result);
}

UsbResult ReplayPort::registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                                      HotplugCallback callback) {
    const auto call = player_->begin(words::registerHotplug(event, filter), std::move(callback));
    if (!call) {
        return usbNoDevice;
    }
    while (true) {
        const auto next = player_->take([call](const RecordedEvent& candidate) {
            return candidate.number == *call &&
                   (candidate.kind == Kind::there || candidate.kind == Kind::result);
        });
        if (!next || next->kind == Kind::result) {
            return next ? static_cast<UsbResult>(next->result) : usbNoDevice;
        }
        player_->deliver(*next);
    }
}

UsbResult ReplayPort::handleEvents() {
    const auto player = player_;
    const auto event = player->take([](const RecordedEvent& candidate) {
        return candidate.kind == Kind::arrived || candidate.kind == Kind::left;
    });
    if (event) {
        player->deliver(*event);
        return usbSuccess;
    }
    Player::Lock lock(player->mutex);
    player->executor.wait(lock, player->changed, [] { return false; });
    return usbSuccess;
}

std::unique_ptr<UsbHandle> ReplayPort::open(const UsbDevicePointer& device, UsbResult& result) {
    const auto* const known = dynamic_cast<const ReplayedDevice*>(device.get());
    return open(words::open(known != nullptr ? known->number : 0), result);
}

std::unique_ptr<UsbHandle> ReplayPort::open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) {
    return open(words::find(vendor, product), result);
}

std::unique_ptr<UsbHandle> ReplayPort::open(const std::string& words, UsbResult& result) {
    const RecordedEvent event = player_->ask(words);
    result = static_cast<UsbResult>(event.result);
    return result == usbSuccess ? std::make_unique<ReplayHandle>(player_, event.number) : nullptr;
}

std::size_t ReplayPort::left() const {
    const Player::Lock lock(player_->mutex);
    return player_->recording.events.size() - player_->next;
}

ReplayPort::Player::Player(Executor& theExecutor, Recording theRecording, Listener theListener)
    : executor(theExecutor),
      recording(withoutClosing(std::move(theRecording))),
      differs(std::move(theListener)),
      start(theExecutor.now()) {}

const RecordedEvent* ReplayPort::Player::nextEvent() const {
    return next < recording.events.size() ? &recording.events[next] : nullptr;
}

std::optional<unsigned> ReplayPort::Player::begin(const std::string& words, HotplugCallback callback) {
    Lock lock(mutex);
    executor.wait(lock, changed, [this] {
        const RecordedEvent* const event = nextEvent();
        return differed || event == nullptr || event->kind == Kind::call;
    });
    const RecordedEvent* const event = nextEvent();
    if (differed || (event == nullptr && words.starts_with("release "))) {
        return std::nullopt;
    }
    if (event == nullptr || event->words != words) {
        differed = true;
        changed.notify();
        lock.unlock();
        differs(event == nullptr ? "the recording has ended; asked: \"" + words + "\""
                                 : "line " + std::to_string(event->line) + ": recorded \"" + event->words +
                                       "\", asked: \"" + words + "\"");
        return std::nullopt;
    }
    if (callback) {
        registrations[event->number] = std::move(callback);
    }
    ++next;
    changed.notify();
    return event->number;
}

std::optional<RecordedEvent> ReplayPort::Player::take(const std::function<bool(const RecordedEvent&)>& mine) {
    Lock lock(mutex);
    executor.wait(lock, changed, [&] { return differed || (nextEvent() != nullptr && mine(*nextEvent())); });
    if (differed) {
        return std::nullopt;
    }
    const RecordedEvent& event = *nextEvent();
    lock.unlock();
    if (const auto left = start + event.time - executor.now(); left > Executor::Duration::zero()) {
        executor.sleep(left);
    }
    lock.lock();
    ++next;
    changed.notify();
    return event;
}

RecordedEvent ReplayPort::Player::ask(const std::string& words) {
    const auto call = begin(words);
    const auto event = call ? take([call](const RecordedEvent& candidate) {
        return candidate.kind == Kind::result && candidate.number == *call;
    })
                            : std::nullopt;
    return event.value_or(RecordedEvent{.result = usbNoDevice});
}

void ReplayPort::Player::deliver(const RecordedEvent& event) {
    HotplugCallback callback;
    {
        const Lock lock(mutex);
        const auto found = registrations.find(event.number);
        if (found == registrations.end()) {
            return;
        }
        callback = found->second;
    }
    callback(std::make_shared<ReplayedDevice>(event.device),
             event.kind == Kind::left ? HotplugEvent::left : HotplugEvent::arrived);
}

}  // namespace kzq::recorder
