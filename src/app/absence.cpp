#include "app/absence.h"

#include <QString>
#include <utility>

#include "app/main_window.h"

namespace kzq {

namespace {

constexpr auto betweenLooks = std::chrono::seconds(5);

}  // namespace

std::shared_ptr<Absence> Absence::watch(Executor& executor, MainWindow& window, Diagnosis diagnosis,
                                        std::function<void(const std::string&)> heldBy) {
    std::shared_ptr<Absence> absence(new Absence(executor, window, std::move(diagnosis), std::move(heldBy)));
    const auto changed = [weak = std::weak_ptr(absence)](bool noPedal) {
        if (const auto self = weak.lock()) {
            ++self->round_;
            self->heldBy_({});
            if (noPedal) {
                self->window_.setRemedy({});  // from an earlier absence, now over
                self->look(self->round_);
            }
        }
    };
    QObject::connect(&window, &MainWindow::noPedalChanged, &window, changed);
    changed(window.saysNoPedal());
    return absence;
}

Absence::Absence(Executor& executor, MainWindow& window, Diagnosis diagnosis,
                 std::function<void(const std::string&)> heldBy)
    : executor_(executor), window_(window), diagnosis_(std::move(diagnosis)), heldBy_(std::move(heldBy)) {}

void Absence::look(unsigned round) {
    executor_.background(Priority::background,
                         [&executor = executor_, weak = weak_from_this(), round, diagnosis = diagnosis_] {
                             const auto findings = diagnosis();
                             executor.main([weak, round, findings, &executor] {
                                 const auto self = weak.lock();
                                 if (!self || round != self->round_) {
                                     return;
                                 }
                                 self->window_.setRemedy(QString::fromStdString(obstacleLine(findings)));
                                 self->heldBy_(holderLine(findings));
                                 executor.mainAfter(betweenLooks, [weak, round] {
                                     const auto later = weak.lock();
                                     if (later && round == later->round_) {
                                         later->look(round);
                                     }
                                 });
                             });
                         });
}

}  // namespace kzq
