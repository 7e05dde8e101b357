#include "app/transfer_panel.h"

#include <QString>
#include <utility>

#include "app/app_environment.h"
#include "app/main_window.h"
#include "app/menu_control.h"
#include "app/panels.h"
#include "loops/facts.h"
#include "slots/slot.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

constexpr std::chrono::seconds timeIsShownEvery(1);

}  // namespace

void TransferPanel::open(std::uint64_t total, std::size_t loops, std::int32_t context) {
    if (context == Slot::importContext) {
        open(total, words("7306 Import"),
             words(loops, "Importing %n loop from the 7306...", "Importing %n loops from the 7306..."));
    } else {
        open(total, words("7306 Export"),
             words(loops, "Exporting %n loop to the 7306...", "Exporting %n loops to the 7306..."));
    }
}

void TransferPanel::open(std::uint64_t total, const std::string& title, const std::string& subtitle) {
    const auto& progress = panels_.progress;
    if (total == 0 || !progress) {
        return;
    }
    menu_.close();
    progress->placeOver(window_);
    progress->setTitle(QString::fromStdString(title));
    progress->setSubtitle(QString::fromStdString(subtitle));
    progress->setTotalBytes(total);
    timeLeft_ = std::make_shared<TimeLeft>(environment_.executor.now());
    setPercent(0);
    lookAgain();
    progress->showWindow();
}

void TransferPanel::setPercent(double fraction) {
    if (panels_.progress) {
        panels_.progress->setPercent(fraction);
    }
    if (timeLeft_) {
        timeLeft_->moved(environment_.executor.now(), fraction);
        showTimeLeft();
        put(fraction);
    }
}

std::shared_ptr<TransferRun> TransferPanel::follow(std::function<void(Executor::Task)> post,
                                                   std::uint64_t total) {
    const auto percent = [this, weak = std::weak_ptr(timeLeft_)](double fraction) {
        if (!weak.expired()) {
            setPercent(fraction);
        }
    };
    return std::make_shared<TransferRun>(environment_.executor, std::move(post), total, percent);
}

void TransferPanel::showTimeLeft() {
    panels_.progress->setTimeLeft(QString::fromStdString(timeLeft_->words(environment_.executor.now())));
}

/// Time passes in a standstill as well.
void TransferPanel::lookAgain() {
    showTimeLeft();
    environment_.executor.mainAfter(timeIsShownEvery, [this, weak = std::weak_ptr(timeLeft_)] {
        if (!weak.expired()) {
            lookAgain();
        }
    });
}

void TransferPanel::showOnIcon(std::optional<double> fraction) const {
    if (!timeLeft_) {
        put(fraction);
    }
}

/// On the icon.
void TransferPanel::put(std::optional<double> fraction) const {
    if (environment_.shell != nullptr) {
        environment_.shell->showProgress(fraction);
    }
}

void TransferPanel::close() {
    timeLeft_.reset();
    put(std::nullopt);
    setPercent(1.0);
    if (panels_.progress) {
        panels_.progress->close();
    }
}

}  // namespace kzq
