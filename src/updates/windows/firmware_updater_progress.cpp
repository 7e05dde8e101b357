#include "updates/windows/firmware_updater_progress.h"

#include <QPointer>
#include <algorithm>
#include <atomic>

#include "ui/palette.h"
#include "ui/scale.h"
#include "ui_FirmwareUpdaterProgress.h"
#include "updates/windows/lamp_bar.h"
#include "updates/windows/line_label.h"
#include "updates/windows/update_panel.h"
#include "words/words.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;
using Seconds = std::chrono::duration<double>;

constexpr Seconds span = 13s;
constexpr auto step = 5ms;
constexpr auto rest = 1s;  ///< how long the full bar is shown

}  // namespace

/// Shared by the background loop and the controller; the loop holds it only weakly between two steps.
/// `running` is the run that moves the bar, so that an abandoned run changes nothing.
struct FirmwareUpdaterProgress::Animation : std::enable_shared_from_this<Animation> {
    Animation(Executor& anExecutor, LampBar* aSlider, QWidget* aWindow)
        : executor(anExecutor), slider(aSlider), window(aWindow) {}

    void start() {
        running = ++latest;
        executor.background(Priority::standard, [weak = weak_from_this(), run = latest, &clock = executor] {
            loop(weak, run, clock);
        });
    }

    static void loop(const std::weak_ptr<Animation>& weak, unsigned run, Executor& clock) {
        const auto begin = clock.now();
        while (move(weak, run, clock.now() - begin)) {
            clock.sleep(step);
        }
        clock.main([weak, run] {
            if (const auto self = weak.lock()) {
                self->fill(run);
            }
        });
    }

    /// Whether to continue after this step.
    static bool move(const std::weak_ptr<Animation>& weak, unsigned run, Seconds elapsed) {
        const auto self = weak.lock();
        if (!self || self->running != run || elapsed >= span) {
            return false;
        }
        self->post(run, elapsed / span);
        return self->running == run;
    }

    /// At most one update is queued: a delayed main thread finds one with the newest value, not hundreds.
    void post(unsigned run, double value) {
        newest = value;
        if (posted.exchange(true)) {
            return;
        }
        executor.main([weak = weak_from_this(), run] {
            if (const auto self = weak.lock()) {
                self->posted = false;
                self->set(run, self->newest);
            }
        });
    }

    void set(unsigned run, double value) const {
        if (run == latest && slider) {
            slider->setDoubleValue(value);
        }
    }

    void fill(unsigned run) {
        set(run, 1);
        executor.mainAfter(rest, [weak = weak_from_this(), run] {
            const auto self = weak.lock();
            if (self && run == self->latest && self->window) {
                self->window->close();
            }
        });
    }

    Executor& executor;
    std::atomic<unsigned> running = 0;  ///< 0 for none
    std::atomic<double> newest = 0;
    std::atomic<bool> posted = false;
    unsigned latest = 0;             ///< main thread
    const QPointer<LampBar> slider;  ///< dereferenced on the main thread only, like `window`
    const QPointer<QWidget> window;
};

std::unique_ptr<FirmwareUpdaterProgress> FirmwareUpdaterProgress::progress(Executor& executor) {
    auto progress = std::unique_ptr<FirmwareUpdaterProgress>(new FirmwareUpdaterProgress(executor));
    return progress->loadWindow() ? std::move(progress) : nullptr;
}

FirmwareUpdaterProgress::FirmwareUpdaterProgress(Executor& executor) : executor_(executor) {}

FirmwareUpdaterProgress::~FirmwareUpdaterProgress() = default;

bool FirmwareUpdaterProgress::loadWindow() {
    auto window = std::make_unique<UpdatePanel>(UpdatePanel::CloseButton::none);
    Ui::FirmwareUpdaterProgress description;
    description.setupUi(window.get());
    window->setFixedSize(window->size());
    caption_ = description.caption;
    caption_->setType(13, 16, KZQWhite());
    auto faintCream = creamColor();
    faintCream.setAlphaF(0.75F);
    step_ = description.step;
    step_->setType(13, 16, faintCream);
    number_ = description.number;
    number_->setType(12, 16, KZQGray());
    slider_ = description.slider;
    animation_ = std::make_shared<Animation>(executor_, slider_, window.get());
    window_ = std::move(window);
    fit();
    return true;
}

/// Only longer texts make the window higher, as some languages have, and only while they are shown.
void FirmwareUpdaterProgress::fit() {
    constexpr int gap = 14;
    constexpr int foot = 6;
    constexpr int captionHeight = 16;
    constexpr int stepHeight = 32;
    const auto put = [](QWidget& part, int top, int height) {
        auto given = placeOf(part);
        given.moveTop(top);
        given.setHeight(height);
        kzq::place(part, given);
        return top + height;
    };
    const auto fitting = [&put](LineLabel& label, int top, int least) {
        return put(label, top, std::max(least, label.heightOfLines(placeOf(label).width())));
    };
    const int bar = fitting(*caption_, placeOf(*caption_).top(), captionHeight) + gap;
    const int below = put(*slider_, bar, placeOf(*slider_).height()) + gap;
    put(*number_, below, placeOf(*number_).height());
    const int bottom = fitting(*step_, below, stepHeight) + foot;
    kzq::place(*window_, {0, 0, placeOf(*window_).width(), bottom});
}

void FirmwareUpdaterProgress::setStep(int number, int count, const QString& shown, const QString& said) {
    step_->setText(shown);
    if (step_->accessibleName() != said) {
        step_->setAccessibleName(said);
    }
    number_->setText(number == 0 ? QString() : QString::fromStdString(words("%1 of %2", number, count)));
    fit();
}

void FirmwareUpdaterProgress::begin() {
    slider_->setDoubleValue(0);
    setStep(0, 0, {}, {});
    window_->centre();
    window_->show();
    window_->raise();
    animation_->start();
}

void FirmwareUpdaterProgress::end() {
    animation_->running = 0;
}

std::function<void()> FirmwareUpdaterProgress::ender() const {
    return [weak = std::weak_ptr(animation_)] {
        if (const auto animation = weak.lock()) {
            animation->running = 0;
        }
    };
}

bool FirmwareUpdaterProgress::animate() const {
    return animation_->running != 0;
}

QWidget& FirmwareUpdaterProgress::window() {
    return *window_;
}

}  // namespace kzq
