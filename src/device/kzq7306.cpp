#include "device/kzq7306.h"

#include <utility>

#include "device/class_state.h"
#include "platform/log.h"

namespace kzq {

ClassState& classState() {
    // Never destroyed: a blocked thread may still use it while the process ends.
    static auto* const state = new ClassState;
    return *state;
}

void KZQ7306::load(DeviceEnvironment environment) {
    environment.usb.initialize();
    auto& state = classState();
    const std::lock_guard guard(state.mutex);
    state.lock = std::make_shared<DeviceLock>(environment.executor);
    state.environment.emplace(std::move(environment));
}

void KZQ7306::unload() {
    auto& state = classState();
    const std::lock_guard guard(state.mutex);
    if (state.shared) {
        state.shared->setFlash(std::nullopt);  // its completion may hold the instance
    }
    state.shared.reset();
    state.environment.reset();
    state.lock.reset();
}

std::shared_ptr<KZQ7306> KZQ7306::looper() {
    auto& state = classState();
    std::shared_ptr<DeviceLock> lock;
    {
        const std::lock_guard guard(state.mutex);
        if (state.shared || !state.environment) {
            return state.shared;
        }
        lock = state.lock;
    }
    const std::lock_guard deviceGuard(*lock);
    const std::lock_guard guard(state.mutex);
    if (!state.shared && state.environment) {
        const auto macos = state.environment->systemMinorVersion();
        if (macos == 0) {
            log(LogCategory::device, "the system's minor version is 0; the pedal will not be used");
            return nullptr;
        }
        state.shared = std::shared_ptr<KZQ7306>(new KZQ7306(*state.environment, lock, macos));
    }
    return state.shared;
}

KZQ7306::KZQ7306(DeviceEnvironment environment, std::shared_ptr<DeviceLock> lock, std::uint64_t macos)
    : environment_(std::move(environment)), lock_(std::move(lock)), macos_(macos) {}

std::shared_ptr<KZQ7306Delegate> KZQ7306::delegate() const {
    const std::lock_guard guard(mirror_);
    return delegate_.lock();
}

void KZQ7306::setDelegate(const std::weak_ptr<KZQ7306Delegate>& delegate) {
    const std::lock_guard guard(mirror_);
    delegate_ = delegate;
}

std::optional<std::string> KZQ7306::version() const {
    const std::lock_guard guard(mirror_);
    return version_;
}

char KZQ7306::stage() const {
    const std::lock_guard guard(mirror_);
    return stage_;
}

void KZQ7306::setStage(char stage) {
    const std::lock_guard guard(mirror_);
    stage_ = stage;
}

bool KZQ7306::factoryBlank() const {
    return stage() == stageFactoryBlank;
}

bool KZQ7306::disconnected() const {
    return stage() == stageNone;
}

void KZQ7306::setOperation(std::int32_t operation) {
    {
        const std::lock_guard guard(mirror_);
        operation_ = operation;
    }
    operationChanged_.notify();
    lock_->reconsider();
}

void KZQ7306::waitUntilIdle() {
    std::unique_lock guard(mirror_);
    environment_.executor.wait(guard, operationChanged_, [this] { return operation_ == idle; });
}

std::optional<Trouble> KZQ7306::lastTrouble() const {
    const std::lock_guard guard(mirror_);
    return trouble_;
}

std::optional<Trouble> KZQ7306::acquisitionTrouble() const {
    const std::lock_guard guard(mirror_);
    return acquisitionTrouble_;
}

bool KZQ7306::fail(Trouble::Kind why) {
    setTrouble(Trouble{why});
    return false;
}

void KZQ7306::setTrouble(std::optional<Trouble> trouble) {
    const std::lock_guard guard(mirror_);
    trouble_ = std::move(trouble);
}

void KZQ7306::setAcquisitionTrouble(std::optional<Trouble> trouble) {
    const std::lock_guard guard(mirror_);
    acquisitionTrouble_ = std::move(trouble);
}

}  // namespace kzq
