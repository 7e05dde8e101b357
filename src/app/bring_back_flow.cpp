#include "app/bring_back_flow.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/app_parts.h"
#include "app/export_flow.h"
#include "app/keep_flow.h"
#include "app/main_window.h"
#include "app/stamp_time.h"
#include "audio/peaks.h"
#include "platform/free_space.h"
#include "ui/check_box.h"
#include "ui/panels/bring_back.h"
#include "ui/qt_words.h"
#include "ui/times.h"

namespace kzq {

namespace {

/// The slots with a loop; nothing while that is not known.
std::optional<std::set<unsigned>> loopsOf(const LoopModel& model) {
    if (!model.table().complete) {
        return std::nullopt;
    }
    std::set<unsigned> loops;
    for (const auto& [slot, loop] : model.table()) {
        loops.insert(slot.number());
    }
    return loops;
}

/// For days further back, %1 is the day and %2 the time.
struct FateTexts {
    const char* today;
    const char* yesterday;
    const char* earlier;
};

FateTexts textsOn(KeptCopy::Fate fate) {
    switch (fate) {
        case KeptCopy::Fate::replaced:
            return {english("replaced today %1"), english("replaced yesterday %1"),
                    english("replaced %1 %2")};
        case KeptCopy::Fate::erased:
            return {english("erased today %1"), english("erased yesterday %1"), english("erased %1 %2")};
        default:
            break;
    }
    return {english("copied today %1"), english("copied yesterday %1"), english("copied %1 %2")};
}

}  // namespace

std::string fateOf(const KeptCopy& copy, const QDateTime& now) {
    const auto then = timeOfStamp(copy.stamp);
    const auto days = then.date().daysTo(now.date());
    const bool thisYear = then.date().year() == now.date().year();
    const auto day = dated(then, days > 1 && days < 7 ? words("ddd")
                                 : thisYear           ? words("d MMM")
                                                      : words("d MMM yyyy"));
    const auto [today, yesterday, earlier] = textsOn(copy.fate);
    const auto time = timeOfDay(then).toStdString();
    return days == 0   ? words(today, time)
           : days == 1 ? words(yesterday, time)
                       : words(earlier, day.toStdString(), time);
}

BringingBack::BringingBack(AppParts& parts)
    : parts_(parts), sound_(parts, [this](std::size_t copy, const CopySound::Shown& shown) {
          panel_->setSound(copy, {.on = shown.on,
                                  .position = shown.position,
                                  .seconds = static_cast<int>(shown.played.count / framesPerSecond),
                                  .trouble = noSound()});
      }) {}

BringingBack::~BringingBack() = default;

void BringingBack::open() {
    parts_.environment.executor.background(Priority::high, [this, post = parts_.teller.poster(),
                                                            kept = parts_.kept] {
        post([this, copies = kept.list(), size = kept.size()]() mutable { show(std::move(copies), size); });
    });
}

void BringingBack::show(std::vector<KeptCopy> copies, std::uint64_t size) {
    if (parts_.window.shield() != nullptr) {
        return;
    }
    make();
    sound_.stop();
    copies_ = std::move(copies);
    const auto now = QDateTime::currentDateTime();
    std::vector<BringBackCopy> rows;
    for (const auto& copy : copies_) {
        rows.push_back({.slot = copy.slot.number(),
                        .fate = QString::fromStdString(fateOf(copy, now)),
                        .seconds = static_cast<int>(copy.length.count / framesPerSecond),
                        .on = copy.stamp == copies_.front().stamp && copy.fate != KeptCopy::Fate::copied});
    }
    panel_->setKeeping(parts_.kept.on());
    panel_->setLoops(loopsOf(parts_.model));
    panel_->setCopies(rows, QString::fromStdString(sizeText(size)));
    deviceChanged();
    readPeaks();
    panel_->show();
    panel_->raise();
    panel_->activateWindow();
}

void BringingBack::make() {
    if (panel_) {
        return;
    }
    panel_ = std::make_unique<BringBack>(&parts_.window);
    auto* const panel = panel_.get();
    QObject::connect(panel, &BringBack::keepingChanged, panel, [this](bool on) {
        if (!keep(on)) {
            panel_->setKeeping(!on);
        }
    });
    QObject::connect(panel, &BringBack::wanted, panel, [this](const auto& targets) { bring(targets); });
    QObject::connect(panel, &BringBack::ringPressed, panel, [this](std::size_t copy) {
        sound_.press(copy, copies_.at(copy).file, loopName(copies_.at(copy).slot));
    });
    QObject::connect(panel, &BringBack::stopPressed, panel, [this] { sound_.stop(); });
    QObject::connect(panel, &QDialog::finished, panel, [this] {
        shown_.reset();
        sound_.stop();
    });
}

QString BringingBack::noSound() const {
    return toQt(troubleOf(parts_.environment.sound));
}

void BringingBack::deviceChanged() {
    if (!panel_) {
        return;
    }
    const auto trouble = noSound();
    if (!trouble.isEmpty()) {
        sound_.stop();
    }
    for (std::size_t at = 0; at < copies_.size(); ++at) {
        auto shown = panel_->rows()[at]->sound();
        shown.trouble = trouble;
        panel_->setSound(at, shown);
    }
}

/// One after the other, as long as the panel shows them.
void BringingBack::readPeaks() {
    shown_ = std::make_shared<int>();
    parts_.environment.executor.background(
        Priority::standard,
        [this, post = parts_.teller.poster(), copies = copies_, shown = std::weak_ptr(shown_)] {
            for (std::size_t at = 0; at < copies.size() && !shown.expired(); ++at) {
                if (const auto peaks = peaksOf(copies[at].file)) {
                    post([this, shown, at, peaks = std::make_shared<Peaks>(*peaks)] {
                        if (!shown.expired()) {
                            panel_->setPeaks(at, peaks);
                        }
                    });
                }
            }
        });
}

void BringingBack::tableChanged() {
    if (panel_) {
        panel_->setLoops(loopsOf(parts_.model));
    }
}

bool BringingBack::keep(bool on) {
    const auto turned = parts_.kept.turn(on);
    if (!turned) {
        parts_.teller.tell({.what = on ? words("Keep Copies is still off") : words("Keep Copies is still on"),
                            .why = words("its folder could not be renamed"),
                            .detail = turned.error().where + ".",
                            .failure = true,
                            .names = {turned.error().where}},
                           "keep");
    } else {
        parts_.teller.settle("keep");
    }
    return turned.has_value();
}

void BringingBack::explain(bool shown) {
    if (shown == (hint_ != 0)) {
        return;
    }
    if (shown) {
        hint_ = parts_.teller.newWork();
        parts_.teller.working(hint_, words("Each loop is read before it is erased or replaced."));
    } else {
        parts_.teller.idle(std::exchange(hint_, 0));
    }
}

/// The usual way: they are staged, and exported unless something else is staged as well.
void BringingBack::bring(const std::map<std::size_t, unsigned>& targets) {
    std::map<SlotNumber, QUrl> files;
    for (const auto& [at, target] : targets) {
        if (const auto slot = SlotNumber::of(target); slot && at < copies_.size()) {
            files[*slot] = QUrl::fromLocalFile(QString::fromStdString(copies_[at].file.string()));
        }
    }
    parts_.presenter.endEditing();
    parts_.presenter.showTab(Slot::exportContext);
    for (const auto& [slot, file] : files) {
        parts_.staging->put(slot, file);
    }
    parts_.staging->whenSettled([this, files, pedal = parts_.model.pedal()] { exportThem(files, pedal); });
}

void BringingBack::exportThem(const std::map<SlotNumber, QUrl>& files, unsigned pedal) {
    const auto staged = parts_.rows.stagedFiles(parts_.model.staging());
    const bool all = std::ranges::includes(staged, files);
    if (all && staged.size() == files.size() && pedal == parts_.model.pedal()) {
        beginExport(parts_, Copies::kept);
    } else if (all) {
        parts_.teller.tell(
            {.what = words(files.size(), "%1 is staged", "%1 are staged", listOf(slotsOf(files))),
             .detail = words("Other files are staged as well. Export writes all of them.")});
    }
}

}  // namespace kzq
