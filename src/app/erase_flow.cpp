#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

#include "app/app_delegate.h"
#include "app/app_parts.h"
#include "device/kzq7306.h"

namespace kzq {

void AppDelegate::eraseButtonClicked() {
    if (flow_ == Flow::starting) {
        return;
    }
    AskedLoops asked;
    for (const auto slot : parts_->model.selection()) {
        asked.emplace(slot, shownIn(slot));
    }
    const auto before = std::exchange(flow_, flow_ == Flow::none ? Flow::starting : flow_);
    const auto answer = parts_->environment.dialogs.run(
        yesOrNoAlertWithHeadline("Erased loop audio cannot be restored. Would you like to continue?"));
    if (before == Flow::none) {
        endStart();
    }
    if (answer == alertFirstButton) {
        whenIdle([this, asked] { startErase(asked); });
    }
}

/// Only slots that the question was about and that are still selected.
void AppDelegate::startErase(AskedLoops asked) {
    std::erase_if(asked,
                  [this](const auto& entry) { return !parts_->model.selection().contains(entry.first); });
    std::vector<std::uint8_t> numbers;
    std::ranges::transform(std::views::keys(asked), std::back_inserter(numbers), &SlotNumber::number);
    if (numbers.empty()) {
        endStart();
        return;
    }
    endEditing();
    parts_->model.deselectAll();
    beginRun();
    for (const auto& [slot, loop] : asked) {
        run_->deselected[slot] = parts_->rows.importRow(slot)->customImportName();
    }
    const auto ready = [asked = std::move(asked)](KZQ7306& looper) {
        return unchangedTable(looper, asked, "Nothing was erased.").has_value();
    };
    onLink(ready, [numbers, finished = onMain(&AppDelegate::finishErase)](KZQ7306& looper) {
        return looper.eraseLoops(numbers, [finished](std::uint8_t /*count*/) { finished(); });
    });
}

void AppDelegate::finishErase() {
    if (const auto looper = parts_->environment.link()) {
        looper->refresh();
    }
    endRun();
}

}  // namespace kzq
