#include "app/listening.h"

#include <utility>

#include "app/app_parts.h"
#include "app/listening_engine.h"

namespace kzq {

Listening::Listening(AppParts& parts) : engine_(std::make_shared<Engine>(parts)) {
    engine_->listen();
}

Listening::~Listening() = default;

void Listening::clicked(Slot& row) {
    engine_->clicked(Engine::nameOf(row));
}

void Listening::compare(Slot& row) {
    engine_->compare(Engine::nameOf(row));
}

void Listening::stop() {
    engine_->stop();
}

bool Listening::playing() const {
    return engine_->now.has_value();
}

// A copy, as giving up may end what the slots belong to.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Listening::fetch(std::vector<SlotNumber> slots, Copy copy, std::function<void(double)> moved) {
    giveUp();
    engine_->fetch =
        std::make_shared<LoopFetch>(slots, engine_->parts.model.table(), std::move(copy), std::move(moved));
    engine_->fetchNext();
}

void Listening::giveUp() {
    engine_->endFetch({Trouble::Kind::cancelled});
}

std::optional<std::filesystem::path> Listening::copyOf(SlotNumber slot) const {
    const auto copy = engine_->shelf.find(slot);
    return copy ? std::optional(copy->file()) : std::nullopt;
}

void Listening::forget(SlotNumber slot) {
    engine_->shelf.forget(slot);
    engine_->showSlot(slot);
}

void Listening::covered() {
    engine_->stop();
    engine_->reader->leaveWaiting();
    giveUp();
}

void Listening::setAwaited(bool awaited) {
    engine_->setAwaited(awaited);
}

bool Listening::isAwaited() const {
    return engine_->awaited != 0;
}

void Listening::readNext() {
    engine_->reader->goOn();
}

void Listening::rowsChanged() {
    engine_->rowsChanged();
}

}  // namespace kzq
